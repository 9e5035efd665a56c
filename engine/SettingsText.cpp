#include "engine/SettingsText.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "model/ICFile.h"
#include "model/StoredNumbers.h"
#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/settings/NameIndex.h"

namespace engine {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Takes the first line, without its end, off the text.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

enum class NameOf { Section, Key };

/// Calls `visit(name, of)` for each section's name and each key, in order.
template <typename Visit>
void ForEachName(std::string_view text, Visit visit) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  while (!text.empty()) {
    const std::string_view line = tools::TrimBlanks(TakeLine(text));
    if (line.empty() || line.front() == ';') continue;
    if (line.front() == '[') {
      if (line.size() >= 2 && line.back() == ']') {
        visit(tools::TrimBlanks(line.substr(1, line.size() - 2)), NameOf::Section);
      }
      continue;
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) continue;
    const std::string_view key = tools::TrimBlanks(line.substr(0, equals));
    if (!key.empty()) visit(key, NameOf::Key);
  }
}

/// The name of a section or key that begins at a place of the text.
std::string_view SectionAt(std::string_view text, std::uint32_t place) {
  text.remove_prefix(place);
  std::string_view line = tools::TrimBlanks(TakeLine(text));
  line.remove_suffix(1);  // the bracket
  return tools::TrimBlanks(line);
}

std::string_view KeyAt(std::string_view text, std::uint32_t place) {
  return tools::TrimBlanks(text.substr(place, text.find('=', place) - place));
}

void Note(Duplicates& found, std::string_view text, std::string_view section,
          std::string_view key) {
  constexpr std::size_t kMostNames = 10;
  if (++found.count > kMostNames) return;
  const char* const place = key.empty() ? section.data() : key.data();
  const auto line = static_cast<std::size_t>(std::count(text.data(), place, '\n')) + 1;
  found.names.push_back({section, key, line});
}

}  // namespace

tools::PathKind LookAt(const std::string& path) {
  std::error_code failure;
  const tools::PathKind kind = tools::KindOf(path, failure);
  if (failure) throw tools::PathError("Die Datei kann nicht gelesen werden", path, failure);
  return kind;
}

std::vector<std::int32_t> StoredEntries(const tools::SettingsFile& settings, std::int32_t count) {
  std::vector<std::int32_t> numbers;
  settings.ForEachSection([&numbers](std::string_view name) {
    const std::int32_t number = model::SlotNumberOf(name, model::kFileSection);
    if (number != 0) numbers.push_back(number);
  });
  return model::OrderedSlots(std::move(numbers), count);
}

void ForEachSection(std::string_view text,
                    const std::function<void(std::string_view name)>& visit) {
  ForEachName(text, [&](std::string_view name, NameOf of) {
    if (of == NameOf::Section) visit(name);
  });
}

Duplicates FindDuplicates(std::string_view text) {
  Duplicates found;
  tools::NameIndex sections;
  std::optional<tools::NameIndex> keys;  // of the section that is being read
  std::string_view section;
  ForEachName(text, [&](std::string_view name, NameOf of) {
    const auto place = static_cast<std::uint32_t>(name.data() - text.data());
    if (of == NameOf::Section) {
      section = name;
      keys.reset();
      const auto sectionAt = [text](std::uint32_t at) { return SectionAt(text, at); };
      if (!sections.Add(name, place, sectionAt)) Note(found, text, section, {});
    } else if (section.data() != nullptr) {  // before the first section nothing counts anyway
      const auto keyAt = [text](std::uint32_t at) { return KeyAt(text, at); };
      if (!keys) keys.emplace();
      if (!keys->Add(name, place, keyAt)) Note(found, text, section, name);
    }
  });
  return found;
}

std::size_t ConflictLine(std::string_view text) {
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::string_view line = TakeLine(text);
    if (line == "=======" || line.starts_with("<<<<<<<") || line.starts_with(">>>>>>>")) {
      return number;
    }
  }
  return 0;
}

}  // namespace engine
