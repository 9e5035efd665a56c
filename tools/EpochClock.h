// A date that is set from outside, for builds that must give the same bytes at any time.
#pragma once

#include <cstdint>

#include "tools/Clock.h"

namespace tools {

/// Its date stands still, in UTC and a form of no locale; time that passes is the machine's.
class EpochClock : public SystemClock {
 public:
  /// The last second of the year 9999.
  static constexpr std::int64_t kLast = 253'402'300'799;

  /// `seconds` since 1970-01-01 UTC, from 0 to kLast.
  explicit EpochClock(std::int64_t seconds) : seconds_(seconds) {}

  [[nodiscard]] int Year() const override;
  /// For example "2031-03-17 08:05:09".
  [[nodiscard]] std::string DateTimeText() const override;

 private:
  std::int64_t seconds_;
};

}  // namespace tools
