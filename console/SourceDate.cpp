#include "console/SourceDate.h"

#include <charconv>

#include "console/ProductVersion.h"
#include "tools/EpochClock.h"

namespace console {

// See https://reproducible-builds.org/specs/source-date-epoch/.
std::optional<std::int64_t> SourceDate(const std::string& text) {
  if (text.empty()) return std::nullopt;
  std::int64_t seconds = -1;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, seconds);
  if (result.ec == std::errc{} && result.ptr == end && seconds >= 0 &&
      seconds <= tools::EpochClock::kLast) {
    return seconds;
  }
  throw BadCall{"SOURCE_DATE_EPOCH ist keine Anzahl von Sekunden: " + text};
}

std::unique_ptr<tools::Clock> ClockAt(std::optional<std::int64_t> date) {
  if (date) return std::make_unique<tools::EpochClock>(*date);
  return std::make_unique<tools::SystemClock>();
}

}  // namespace console
