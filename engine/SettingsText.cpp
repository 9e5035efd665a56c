#include "engine/SettingsText.h"

#include <algorithm>

#include "tools/Error.h"
#include "tools/Text.h"

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

}  // namespace

tools::PathKind LookAt(const std::string& path) {
  std::error_code failure;
  const tools::PathKind kind = tools::KindOf(path, failure);
  if (failure) throw tools::PathError("Die Datei kann nicht gelesen werden", path, failure);
  return kind;
}

std::vector<std::string_view> SectionNames(std::string_view text) {
  std::vector<std::string_view> names;
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  while (!text.empty()) {
    const std::string_view line = tools::TrimBlanks(TakeLine(text));
    if (line.size() < 2 || line.front() != '[' || line.back() != ']') continue;
    names.push_back(tools::TrimBlanks(line.substr(1, line.size() - 2)));
  }
  return names;
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
