#include "model/StoredNumbers.h"

#include "tools/Error.h"
#include "tools/Numbers.h"

namespace model {

namespace {

/// "/a/b.component ([File1] Vital"
std::string OpenedPlace(const SettingPlace& place) {
  return std::string(place.path).append(" ([").append(place.section).append("] ").append(place.key);
}

template <typename Convert>
auto StoredNumber(std::string_view text, const SettingPlace& place, const Convert& convert) {
  try {
    return convert(text);
  } catch (const tools::Error& error) {
    throw tools::Error(std::string(error.what()) + ": " + OpenedPlace(place) + ")");
  }
}

}  // namespace

std::int16_t StoredInt16(std::string_view text, const SettingPlace& place) {
  return StoredNumber(text, place, tools::ToInt16);
}

std::int32_t StoredInt32(std::string_view text, const SettingPlace& place) {
  return StoredNumber(text, place, tools::ToInt32);
}

std::int32_t StoredCount(const std::string& text, const SettingPlace& place) {
  std::int32_t count = -1;
  try {
    count = tools::ToInt32(text);
  } catch (const tools::Error&) {  // NOLINT(bugprone-empty-catch): told below, with file and key
  }
  if (count >= 0) return count;
  throw tools::Error("Die Anzahl ist ungültig: " + OpenedPlace(place) + "=" + text + ")");
}

}  // namespace model
