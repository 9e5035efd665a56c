// A settings file and, behind NULs, section, key and value of each write to it. What is read must
// be what a search from the beginning of the text finds, and a write may change nothing but its
// value.
#include <algorithm>
#include <optional>
#include <sstream>

#include "tests/fuzz/Fuzz.h"
#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/settings/SettingsFile.h"

namespace {

using tests::Require;

struct Setting {
  std::string section;
  std::string key;
  std::string value;
};

/// What a settings file has for a key, found in the simplest way; nothing when it lacks the key.
std::optional<std::string> Search(const std::string& content, const std::string& section,
                                  const std::string& key) {
  std::istringstream lines(content.substr(content.starts_with("\xEF\xBB\xBF") ? 3 : 0));
  bool inSection = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.ends_with('\r')) line.pop_back();
    const std::string_view text = tools::TrimBlanks(line);
    if (text.size() > 1 && text.front() == '[' && text.back() == ']') {
      if (inSection) break;
      const std::string_view name = tools::TrimBlanks(text.substr(1, text.size() - 2));
      inSection = tools::EqualIgnoringAsciiCase(name, section);
      continue;
    }
    const std::size_t equals = text.find('=');
    if (!inSection || equals == 0 || equals == std::string_view::npos) continue;
    if (text.front() == ';' || text.front() == '[') continue;
    if (!tools::EqualIgnoringAsciiCase(tools::TrimBlanks(text.substr(0, equals)), key)) continue;
    const std::string_view value = tools::TrimBlanks(text.substr(equals + 1));
    const bool quoted = value.size() > 1 && value.front() == '"' && value.back() == '"';
    return std::string(quoted ? value.substr(1, value.size() - 2) : value);
  }
  return std::nullopt;
}

/// The same from the file's index. A key that is missing answers with each default.
std::optional<std::string> Read(const tools::SettingsFile& file, const std::string& section,
                                const std::string& key) {
  const std::string value = file.Read(section, key, "one");
  if (value == file.Read(section, key, "another")) return value;
  Require(value == "one", "a missing key has the default");
  return std::nullopt;
}

/// True when nothing or a part of one line became something else: a value, or a section, a key and
/// an empty line between them.
bool IsOneChange(const std::string& before, const std::string& after) {
  const auto [begin, newBegin] =
      std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  const auto [end, newEnd] = std::mismatch(before.rbegin(), std::make_reverse_iterator(begin),
                                           after.rbegin(), std::make_reverse_iterator(newBegin));
  return std::count(begin, end.base(), '\n') == 0 && std::count(newBegin, newEnd.base(), '\n') <= 3;
}

bool IsSame(const Setting& one, const Setting& other) {
  return tools::EqualIgnoringAsciiCase(one.section, other.section) &&
         tools::EqualIgnoringAsciiCase(one.key, other.key);
}

void Write(tools::SettingsFile& file, const Setting& own, const std::vector<Setting>& settings) {
  const std::string before = file.Render();
  try {
    file.Write(own.section, own.key, own.value);
  } catch (const tools::Error&) {
    Require(file.Render() == before, "a refused write changes nothing");
    return;
  }
  const std::string after = file.Render();
  Require(Read(file, own.section, own.key) == own.value, "a write is visible at once");
  Require(Search(after, own.section, own.key) == own.value, "a write is stored where it is found");
  Require(IsOneChange(before, after), "a write changes one place");
  Require(after == before || Search(before, own.section, own.key) != own.value,
          "equal values are left");
  for (const Setting& other : settings) {
    Require(IsSame(own, other) ||
                Search(before, other.section, other.key) == Search(after, other.section, other.key),
            "a write leaves other values");
  }
}

std::vector<Setting> SettingsOf(const std::vector<std::string>& parts) {
  std::vector<Setting> settings;
  for (std::size_t i = 1; i + 2 < parts.size(); i += 3) {
    settings.push_back({parts[i], parts[i + 1], parts[i + 2]});
  }
  return settings;
}

}  // namespace

void tests::Fuzz(std::string_view input) {
  const std::vector<std::string> parts = Split(input, '\0');
  const std::vector<Setting> settings = SettingsOf(parts);
  const std::string& content = parts.front();
  tools::SettingsFile file(content);
  tools::SettingsFile replayed(content);
  const std::string opened = file.Render();
  Require(opened.starts_with(content), "content is kept");
  const std::string added = opened.substr(content.size());
  Require(added.empty() || added == "\n" || added == "\r\n", "only a line end is added");
  for (std::size_t i = 0; i < settings.size(); ++i) {
    Write(file, settings[i], settings);
    if (i % 4 != 1) continue;
    file.ReplayWrites(replayed);
    file.ForgetWrites();
  }
  const std::string rendered = file.Render();
  const tools::SettingsFile again(rendered);
  for (const Setting& setting : settings) {
    const std::optional<std::string> value = Search(rendered, setting.section, setting.key);
    Require(Read(file, setting.section, setting.key) == value, "it reads like its text");
    Require(Read(again, setting.section, setting.key) == value, "so it does again");
  }
  Require(again.Render() == rendered, "what was rendered is kept");
  file.ReplayWrites(replayed);
  Require(replayed.Render() == rendered, "writes are repeated");
  if (!settings.empty()) Write(*file.Clone(), settings.front(), settings);
  Require(file.Render() == rendered, "a copy is separate");
}
