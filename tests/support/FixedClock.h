// A clock that stands still.
#pragma once

#include "tools/Clock.h"

namespace tests {

class FixedClock : public tools::Clock {
 public:
  [[nodiscard]] int Year() const override { return 2031; }
  [[nodiscard]] std::string DateTimeText() const override { return "17.03.2031 08:05:09"; }
};

}  // namespace tests
