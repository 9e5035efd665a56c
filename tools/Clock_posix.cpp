#include <langinfo.h>
#include <locale.h>
#include <time.h>

#include <array>
#include <chrono>
#include <memory>
#include <string_view>
#include <type_traits>

#include "tools/Clock.h"
#include "tools/Text.h"

namespace tools {

namespace {

constexpr long long kNanosecondsPerSecond = 1'000'000'000;

struct LocaleCloser {
  void operator()(locale_t locale) const { freelocale(locale); }
};
using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, LocaleCloser>;

std::string Format(const tm& time, const char* format, locale_t locale) {
  std::array<char, 256> buffer{};
  return {buffer.data(), strftime_l(buffer.data(), buffer.size(), format, &time, locale)};
}

tm LocalTime(long long nanosecondsSinceEpoch) {
  // Rounded down also before 1970.
  const long long remainder = nanosecondsSinceEpoch % kNanosecondsPerSecond;
  const time_t seconds =
      static_cast<time_t>(nanosecondsSinceEpoch / kNanosecondsPerSecond - (remainder < 0 ? 1 : 0));
  tm time{};
  localtime_r(&seconds, &time);
  return time;
}

long long Now() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

}  // namespace

int SystemClock::Year() const { return LocalTime(Now()).tm_year + 1900; }

std::string SystemClock::DateTimeText() const { return LocalDateTimeText(Now()); }

std::string LocalDateTimeText(long long nanosecondsSinceEpoch) {
  const tm time = LocalTime(nanosecondsSinceEpoch);
  const Locale plain(newlocale(LC_ALL_MASK, "C", nullptr));
  const Locale user(newlocale(LC_ALL_MASK, "", nullptr));
  if (user) {
    // The C locale's month/day/two-digit year is a default that nobody chose.
    const std::string_view form = nl_langinfo_l(D_FMT, user.get());
    if (form != nl_langinfo_l(D_FMT, plain.get())) {
      std::string text = Format(time, "%x %X", user.get());
      if (IsValidUtf8(text)) return text;
    }
  }
  return Format(time, "%Y-%m-%d %H:%M:%S", plain.get());
}

}  // namespace tools
