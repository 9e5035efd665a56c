#include "model/StoredNumbers.h"

#include <algorithm>
#include <charconv>

#include "tools/Error.h"
#include "tools/Numbers.h"
#include "tools/Text.h"

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
    if (tools::TrimBlanks(text).empty() || tools::BeginsWithNumber(text)) {
      count = tools::ToInt32(text);
    }
  } catch (const tools::Error&) {  // NOLINT(bugprone-empty-catch): told below, with file and key
  }
  if (count >= 0) return count;
  throw tools::Error("Die Anzahl ist ungültig: " + OpenedPlace(place) + "=" + text + ")");
}

void RequireShortText(const std::string& text, const SettingPlace& place) {
  if (text.size() <= kLongestText) return;
  throw tools::Error("Der Wert ist zu lang (" + std::to_string(text.size()) +
                     " Bytes, möglich sind " + std::to_string(kLongestText) +
                     "): " + OpenedPlace(place) + ")");
}

namespace {

bool StartsWithWord(std::string_view name, std::string_view word) {
  return name.size() > word.size() &&
         tools::EqualIgnoringAsciiCase(name.substr(0, word.size()), word);
}

std::string_view WithoutEnding(std::string_view name, std::string_view ending) {
  if (name.size() < ending.size()) return {};
  const std::size_t rest = name.size() - ending.size();
  return tools::EqualIgnoringAsciiCase(name.substr(rest), ending) ? name.substr(0, rest)
                                                                  : std::string_view();
}

// The section name or key that a line of a settings file begins with.
std::string_view NameOfLine(std::string_view line) {
  constexpr std::string_view kBefore = " \t[\xEF\xBB\xBF";
  line.remove_prefix(std::min(line.find_first_not_of(kBefore), line.size()));
  return line.substr(0, line.find_first_of(" \t=]\r"));
}

}  // namespace

std::int32_t SlotNumberOf(std::string_view name, std::string_view word) {
  if (!StartsWithWord(name, word)) return 0;
  const std::string_view digits = name.substr(word.size());
  if (digits.front() < '1' || digits.front() > '9') return 0;
  std::int32_t number = 0;
  const char* end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, number);
  return result.ec == std::errc{} && result.ptr == end ? number : 0;
}

std::vector<std::int32_t> SlotsNamedIn(std::string_view settingsText, std::string_view word,
                                       std::int32_t count, std::string_view ending) {
  std::vector<std::int32_t> slots;
  while (!settingsText.empty()) {
    const std::size_t end = std::min(settingsText.find('\n'), settingsText.size());
    const std::string_view name = NameOfLine(settingsText.substr(0, end));
    const std::int32_t slot = SlotNumberOf(WithoutEnding(name, ending), word);
    if (slot != 0 && slot <= count) slots.push_back(slot);
    settingsText.remove_prefix(std::min(end + 1, settingsText.size()));
  }
  return OrderedSlots(std::move(slots), count);
}

}  // namespace model
