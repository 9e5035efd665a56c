#include <array>
#include <cstdint>

#include "tools/Clock.h"
#include "tools/WindowsApi.h"

namespace tools {

namespace {

// FILETIME counts 100-nanosecond steps from 1601-01-01 UTC.
constexpr std::int64_t kStepNanoseconds = 100;
constexpr std::int64_t kStepsTo1970 = 116'444'736'000'000'000;

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

std::string LocalDateTimeText(long long nanosecondsSinceEpoch) {
  ULARGE_INTEGER steps{};
  steps.QuadPart =
      static_cast<std::uint64_t>(nanosecondsSinceEpoch / kStepNanoseconds + kStepsTo1970);
  const FILETIME fileTime{steps.LowPart, steps.HighPart};
  SYSTEMTIME utc{};
  SYSTEMTIME local{};
  FileTimeToSystemTime(&fileTime, &utc);
  SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local);
  return Format(local);
}

}  // namespace tools
