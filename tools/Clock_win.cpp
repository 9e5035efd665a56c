#include <array>

#include "tools/Clock.h"
#include "tools/WindowsApi.h"

namespace tools {

namespace {

std::string Format(const SYSTEMTIME& local) {
  std::array<wchar_t, 128> date{};
  std::array<wchar_t, 128> time{};
  GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &local, nullptr, date.data(),
                  static_cast<int>(date.size()), nullptr);
  GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &local, nullptr, time.data(),
                  static_cast<int>(time.size()));
  return FromWide(date.data()) + " " + FromWide(time.data());
}

SYSTEMTIME LocalNow() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return now;
}

}  // namespace

int SystemClock::Year() const { return LocalNow().wYear; }

std::string SystemClock::DateTimeText() const { return Format(LocalNow()); }

std::string LocalDateTimeText(FileTime time) {
  const FILETIME fileTime = ToSystemForm(time);
  SYSTEMTIME utc{};
  SYSTEMTIME local{};
  FileTimeToSystemTime(&fileTime, &utc);
  SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local);
  return Format(local);
}

}  // namespace tools
