#include <stdlib.h>
#include <time.h>

#include "tests/support/Testing.h"
#include "tools/Clock.h"

namespace tools {

TEST(ClockTest, WritesLocalTimeInIsoFormWithoutALocale) {
  setenv("LC_ALL", "C", 1);
  setenv("TZ", "EST5", 1);
  tzset();
  EXPECT_EQ(LocalDateTimeText(1795269909'999999999), "2026-11-21 09:05:09");
  EXPECT_EQ(LocalDateTimeText(-1), "1969-12-31 18:59:59");
  EXPECT_GE(SystemClock().Year(), 2024);
}

}  // namespace tools
