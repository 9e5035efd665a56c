#include <stdlib.h>
#include <time.h>

#include "tests/support/Testing.h"
#include "tools/Clock.h"

namespace tools {

using namespace std::chrono_literals;

TEST(ClockTest, WritesLocalTimeInIsoFormWithoutALocale) {
  setenv("LC_ALL", "C", 1);
  setenv("TZ", "EST5", 1);
  tzset();
  EXPECT_EQ(LocalDateTimeText(FileTime(1795269909'999999999ns)), "2026-11-21 09:05:09");
  EXPECT_EQ(LocalDateTimeText(FileTime(-1ns)), "1969-12-31 18:59:59");
  EXPECT_GE(SystemClock().Year(), 2024);
}

}  // namespace tools
