#include "tools/SettingsLines.h"

#include <algorithm>
#include <cstring>

namespace tools {

namespace {

/// Up to this many lines are searched one by one.
constexpr std::size_t kMostLinesWithoutIndex = 32;

/// Equal keys have equal tags.
std::uint32_t TagOf(std::string_view key) {
  if (key.empty()) return 0;
  // This bit is all that tells an ASCII letter's two cases apart.
  const auto byte = [](char c) { return static_cast<unsigned char>(c) | 0x20U; };
  return static_cast<std::uint32_t>(key.size()) ^ (byte(key.front()) << 24U) ^
         (byte(key.back()) << 16U);
}

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
  lines_.clear();
  tags_.clear();
  index_ = NameIndex();
  while (!text.empty()) {
    const std::size_t size = text.find('\n') + 1;
    const SettingsLine& line = lines_.emplace_back(SettingsLine::Parse(text.substr(0, size)));
    tags_.push_back(TagOf(line.Key()));
    text.remove_prefix(size);
  }
}

std::optional<std::uint32_t> SettingsLines::Find(std::string_view key) const {
  if (lines_.size() > kMostLinesWithoutIndex) {
    if (index_.IsEmpty()) MakeIndex();
    return index_.Find(key, [this](std::uint32_t i) { return lines_[i].Key(); });
  }
  const std::uint32_t tag = TagOf(key);
  for (auto place = tags_.begin();; ++place) {
    place = std::find(place, tags_.end(), tag);
    if (place == tags_.end()) return std::nullopt;
    const auto position = static_cast<std::uint32_t>(place - tags_.begin());
    if (EqualIgnoringAsciiCase(lines_[position].Key(), key)) return position;
  }
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
  tags_.push_back(TagOf(line.Key()));
  if (position + 1 < lines_.size()) {
    std::rotate(lines_.begin() + position, lines_.end() - 1, lines_.end());
    std::rotate(tags_.begin() + position, tags_.end() - 1, tags_.end());
  }
  if (!index_.IsEmpty() && line.keySize != 0) index_.Add(line.Key(), position);
  return position;
}

}  // namespace tools
