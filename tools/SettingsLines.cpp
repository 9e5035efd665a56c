#include "tools/SettingsLines.h"

#include <algorithm>

namespace tools {

namespace {

/// Up to this many lines are searched one by one.
constexpr std::size_t kMostLinesWithoutIndex = 32;

}  // namespace

SettingsLine SettingsLine::Parse(std::string_view text) {
  SettingsLine line{.text = text.data(), .size = static_cast<std::uint32_t>(text.size())};
  std::size_t begin = 0;
  while (IsSettingsBlank(text[begin])) ++begin;
  if (text[begin] == ';' || text[begin] == '[') return line;
  const std::size_t equals = text.find('=', begin);
  if (equals == std::string_view::npos || equals == begin) return line;
  std::size_t end = equals;
  while (IsSettingsBlank(text[end - 1])) --end;
  line.keyBegin = static_cast<std::uint32_t>(begin);
  line.keySize = static_cast<std::uint32_t>(end - begin);
  line.valueBegin = static_cast<std::uint32_t>(equals + 1);
  line.keyTag = TagOf(line.Key());
  return line;
}

std::string_view SettingsLine::Value() const {
  const char* begin = text + valueBegin;
  const char* end = text + size - 1;
  if (end > begin && end[-1] == '\r') --end;
  while (begin < end && IsSettingsBlank(*begin)) ++begin;
  while (begin < end && IsSettingsBlank(end[-1])) --end;
  if (end - begin >= 2 && *begin == '"' && end[-1] == '"') ++begin, --end;
  return {begin, static_cast<std::size_t>(end - begin)};
}

bool SettingsLine::HasOnlyBlanks() const {
  const char* end = text + size - 1;
  if (end > text && end[-1] == '\r') --end;
  return std::all_of(text, end, IsSettingsBlank);
}

void SettingsLines::Parse(std::string_view text) {
  constexpr std::size_t kUsualLines = 16;
  lines_.clear();
  lines_.reserve(kUsualLines);
  index_ = NameIndex();
  while (!text.empty()) {
    const std::size_t size = text.find('\n') + 1;
    lines_.push_back(SettingsLine::Parse(text.substr(0, size)));
    text.remove_prefix(size);
  }
}

std::size_t SettingsLines::TextSize() const {
  std::size_t size = 0;
  for (const SettingsLine& line : lines_) size += line.size;
  return size;
}

std::optional<std::uint32_t> SettingsLines::Find(std::string_view key) const {
  if (lines_.size() > kMostLinesWithoutIndex) {
    if (index_.IsEmpty()) MakeIndex();
    return index_.Find(key, [this](std::uint32_t i) { return lines_[i].Key(); });
  }
  const std::uint32_t tag = SettingsLine::TagOf(key);
  const auto found = std::find_if(lines_.begin(), lines_.end(), [&](const SettingsLine& line) {
    return line.keyTag == tag && EqualIgnoringAsciiCase(line.Key(), key);
  });
  if (found == lines_.end()) return std::nullopt;
  return static_cast<std::uint32_t>(found - lines_.begin());
}

void SettingsLines::MakeIndex() const {
  index_.Reserve(lines_.size());
  const auto keyAt = [this](std::uint32_t i) { return lines_[i].Key(); };
  for (std::uint32_t i = 0; i < lines_.size(); ++i) {
    if (lines_[i].keySize != 0) index_.AddIfNew(lines_[i].Key(), i, keyAt);
  }
}

std::uint32_t SettingsLines::Add(const SettingsLine& line) {
  auto position = static_cast<std::uint32_t>(lines_.size());
  while (position > 0 && lines_[position - 1].IsBlank()) --position;
  lines_.push_back(line);
  if (position + 1 < lines_.size()) {
    std::rotate(lines_.begin() + position, lines_.end() - 1, lines_.end());
  }
  if (!index_.IsEmpty() && line.keySize != 0) index_.Add(line.Key(), position);
  return position;
}

}  // namespace tools
