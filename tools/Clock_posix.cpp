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

struct LocaleCloser {
  void operator()(locale_t locale) const { freelocale(locale); }
};
using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, LocaleCloser>;

std::string Format(const tm& time, const char* format, locale_t locale) {
  std::array<char, 256> buffer{};
  return {buffer.data(), strftime_l(buffer.data(), buffer.size(), format, &time, locale)};
}

tm LocalTime(FileTime time) {
  const time_t seconds = std::chrono::floor<std::chrono::seconds>(time).time_since_epoch().count();
  tm local{};
  localtime_r(&seconds, &local);
  return local;
}

}  // namespace

int SystemClock::Year() const { return LocalTime(std::chrono::system_clock::now()).tm_year + 1900; }

std::string SystemClock::DateTimeText() const {
  return LocalDateTimeText(std::chrono::system_clock::now());
}

std::string LocalDateTimeText(FileTime time) {
  const tm local = LocalTime(time);
  const Locale plain(newlocale(LC_ALL_MASK, "C", nullptr));
  const Locale user(newlocale(LC_ALL_MASK, "", nullptr));
  if (user) {
    // The C locale's month/day/two-digit year is a default that nobody chose.
    const std::string_view form = nl_langinfo_l(D_FMT, user.get());
    if (form != nl_langinfo_l(D_FMT, plain.get())) {
      std::string text = Format(local, "%x %X", user.get());
      if (IsValidUtf8(text)) return text;
    }
  }
  return Format(local, "%Y-%m-%d %H:%M:%S", plain.get());
}

}  // namespace tools
