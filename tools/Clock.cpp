#include "tools/Clock.h"

#include <iomanip>
#include <sstream>

namespace tools {

namespace {

std::chrono::year_month_day DateOf(std::chrono::sys_seconds time) {
  return std::chrono::floor<std::chrono::days>(time);
}

}  // namespace

int EpochClock::Year() const { return static_cast<int>(DateOf(time_).year()); }

std::string EpochClock::DateTimeText() const {
  const std::chrono::year_month_day date = DateOf(time_);
  const std::chrono::hh_mm_ss time{time_ - std::chrono::sys_days{date}};
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << std::setfill('0') << std::setw(4) << Year();
  text << '-' << std::setw(2) << static_cast<unsigned>(date.month());
  text << '-' << std::setw(2) << static_cast<unsigned>(date.day());
  text << ' ' << std::setw(2) << time.hours().count() << ':' << std::setw(2)
       << time.minutes().count() << ':' << std::setw(2) << time.seconds().count();
  return text.str();
}

}  // namespace tools
