// The date and time, behind an interface so that tests can set them.
#pragma once

#include <string>

namespace tools {

/// The current local date and time.
class Clock {
 public:
  virtual ~Clock() = default;
  Clock() = default;
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;

  /// The four-digit year.
  [[nodiscard]] virtual int Year() const = 0;
  /// Date and time in the system's default form.
  [[nodiscard]] virtual std::string DateTimeText() const = 0;
};

/// The machine's clock, in local time and the user's locale.
class SystemClock : public Clock {
 public:
  [[nodiscard]] int Year() const override;
  [[nodiscard]] std::string DateTimeText() const override;
};

/// A point in time (nanoseconds since 1970-01-01 UTC) as local date and time in the same form.
[[nodiscard]] std::string LocalDateTimeText(long long nanosecondsSinceEpoch);

}  // namespace tools
