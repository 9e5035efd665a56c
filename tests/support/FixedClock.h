// A clock that stands still until a test turns it.
#pragma once

#include "tools/Clock.h"

namespace tests {

class FixedClock : public tools::Clock {
 public:
  [[nodiscard]] int Year() const override { return 2031; }
  [[nodiscard]] std::string DateTimeText() const override { return "17.03.2031 08:05:09"; }
  [[nodiscard]] std::chrono::steady_clock::time_point SteadyNow() const override { return now_; }

  /// Lets time pass.
  void Turn(std::chrono::milliseconds time) { now_ += time; }

 private:
  std::chrono::steady_clock::time_point now_;
};

}  // namespace tests
