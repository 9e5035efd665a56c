#include "tools/SettingsFile.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "tools/Error.h"
#include "tools/SettingsDocument.h"
#include "tools/Text.h"

namespace tools {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
/// Sections up to this many lines are searched line by line.
constexpr std::size_t kMostLinesWithoutIndex = 32;

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view WithoutLineEnd(std::string_view line) {
  if (line.ends_with('\n')) line.remove_suffix(1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

void Refuse(bool refused, const char* why, std::string_view text) {
  if (refused) throw Error(std::string(why).append(": ").append(text.substr(0, 200)));
}

bool HasLineBreak(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; });
}

void CheckName(std::string_view name, const char* why) {
  Refuse(name.empty() || IsBlank(name.front()) || IsBlank(name.back()) || HasLineBreak(name), why,
         name);
}

void CheckKey(std::string_view key) {
  const char* const why = "Ungültiger Schlüsselname in den Einstellungen";
  CheckName(key, why);
  Refuse(key.front() == ';' || key.front() == '[' || key.find('=') != std::string_view::npos, why,
         key);
}

/// True for a value that only survives between double quotes.
bool NeedsQuotes(std::string_view value) {
  return !value.empty() && (IsBlank(value.front()) || IsBlank(value.back()) ||
                            value.front() == '"' || value.back() == '"');
}

}  // namespace

SettingsFile::Document::Document(std::string content) : content_(std::move(content)) {
  const std::size_t firstBreak = content_.find('\n');
  if (firstBreak != std::string::npos && firstBreak > 0 && content_[firstBreak - 1] == '\r') {
    lineEnd_ = "\r\n";
  }
  // With a line end behind the last line every line can be followed by another.
  if (!content_.empty() && content_.back() != '\n') content_.append(lineEnd_);
  Parse();
}

void SettingsFile::Document::Parse() {
  sections_.emplace_back();
  std::string_view rest = content_;
  if (rest.starts_with(kByteOrderMark)) {
    sections_.front().lines.push_back(
        {.text = rest.data(), .size = static_cast<std::uint32_t>(kByteOrderMark.size())});
    rest.remove_prefix(kByteOrderMark.size());
  }
  while (!rest.empty()) {
    const void* end = std::memchr(rest.data(), '\n', rest.size());
    const std::size_t size =
        static_cast<std::size_t>(static_cast<const char*>(end) - rest.data()) + 1;
    AddLine(rest.substr(0, size));
    rest.remove_prefix(size);
  }
  IndexSections();
}

void SettingsFile::Document::IndexSections() {
  sectionIndex_.Reserve(sections_.size());
  const auto nameAt = [this](std::uint32_t i) { return sections_[i].name; };
  for (std::uint32_t i = 1; i < sections_.size(); ++i) {
    // The first of two sections of one name counts.
    if (!sectionIndex_.Find(sections_[i].name, nameAt)) sectionIndex_.Add(sections_[i].name, i);
  }
}

void SettingsFile::Document::AddLine(std::string_view text) {
  const Line line = MakeLine(text);
  if (line.keySize == 0) {
    const std::string_view trimmed = TrimBlanks(WithoutLineEnd(text));
    if (trimmed.size() >= 2 && trimmed.front() == '[' && trimmed.back() == ']') {
      // Sections mostly have as many lines as the one before.
      const std::size_t likelySize = sections_.back().lines.size();
      Section& section = sections_.emplace_back();
      section.name = TrimBlanks(trimmed.substr(1, trimmed.size() - 2));
      section.lines.reserve(std::min(likelySize, kMostLinesWithoutIndex));
    }
  }
  sections_.back().lines.push_back(line);
}

SettingsFile::Document::Line SettingsFile::Document::MakeLine(std::string_view text) {
  Line line{.text = text.data(), .size = static_cast<std::uint32_t>(text.size())};
  std::size_t begin = 0;
  while (begin < text.size() && IsBlank(text[begin])) ++begin;
  if (begin == text.size() || text[begin] == ';' || text[begin] == '[') return line;
  const std::size_t equals = text.find('=', begin);
  if (equals == std::string_view::npos || equals == begin) return line;
  std::size_t end = equals;
  while (IsBlank(text[end - 1])) --end;
  line.keyBegin = static_cast<std::uint32_t>(begin);
  line.keySize = static_cast<std::uint32_t>(end - begin);
  line.valueBegin = static_cast<std::uint32_t>(equals + 1);
  return line;
}

std::string_view SettingsFile::Document::ValueOf(const Line& line) {
  std::string_view value = TrimBlanks(WithoutLineEnd(line.Text().substr(line.valueBegin)));
  if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
    value = value.substr(1, value.size() - 2);
  }
  return value;
}

std::optional<std::uint32_t> SettingsFile::Document::FindLine(const Section& section,
                                                              std::string_view key) {
  const std::vector<Line>& lines = section.lines;
  if (lines.size() > kMostLinesWithoutIndex) {
    if (!section.index) IndexLines(section);
    return section.index->Find(key, [&lines](std::uint32_t i) { return lines[i].Key(); });
  }
  for (std::uint32_t i = 0; i < lines.size(); ++i) {
    // A line without a key has an empty one, and nobody asks for that.
    if (lines[i].keySize == key.size() && EqualIgnoringAsciiCase(lines[i].Key(), key)) return i;
  }
  return std::nullopt;
}

void SettingsFile::Document::IndexLines(const Section& section) {
  const std::vector<Line>& lines = section.lines;
  section.index = std::make_unique<NameIndex>();
  section.index->Reserve(lines.size());
  const auto keyAt = [&lines](std::uint32_t i) { return lines[i].Key(); };
  for (std::uint32_t i = 0; i < lines.size(); ++i) {
    if (lines[i].keySize != 0 && !section.index->Find(lines[i].Key(), keyAt)) {
      section.index->Add(lines[i].Key(), i);
    }
  }
}

const SettingsFile::Document::Section* SettingsFile::Document::FindSection(
    std::string_view name) const {
  if (lastFound_ == 0 || sections_[lastFound_].name != name) {
    const auto found =
        sectionIndex_.Find(name, [this](std::uint32_t i) { return sections_[i].name; });
    if (!found) return nullptr;
    lastFound_ = *found;
  }
  return &sections_[lastFound_];
}

std::optional<std::string_view> SettingsFile::Document::Find(std::string_view section,
                                                             std::string_view key) const {
  const Section* const place = FindSection(section);
  if (place == nullptr || key.empty()) return std::nullopt;
  const std::optional<std::uint32_t> line = FindLine(*place, key);
  if (!line) return std::nullopt;
  return ValueOf(place->lines[*line]);
}

bool SettingsFile::Document::Write(std::string_view section, std::string_view key,
                                   std::string_view value) {
  CheckKey(key);
  Refuse(HasLineBreak(value), "Ein Wert der Einstellungen darf keinen Zeilenumbruch enthalten",
         value);
  if (FindSection(section) == nullptr) {
    CheckName(section, "Ungültiger Abschnittsname in den Einstellungen");
    AddSection(section);
  }
  Section& place = sections_[lastFound_];
  std::optional<std::uint32_t> position = FindLine(place, key);
  if (!position) {
    position = InsertLine(place, NewLine(key, value));
  } else if (ValueOf(place.lines[*position]) == value) {
    return false;
  } else {
    place.lines[*position] = NewLine(place.lines[*position].Key(), value);
  }
  written_.emplace_back(lastFound_, *position);
  return true;
}

SettingsFile::Document::Section& SettingsFile::Document::AddSection(std::string_view name) {
  std::vector<Line>& before = sections_.back().lines;
  if (!before.empty() && !WithoutLineEnd(before.back().Text()).empty()) {
    before.push_back(MakeLine(lineEnd_));
  }
  const std::size_t likelySize = before.size();
  const std::string_view header = Keep({"[", name, "]", lineEnd_});
  lastFound_ = static_cast<std::uint32_t>(sections_.size());
  Section& added = sections_.emplace_back();
  added.name = header.substr(1, name.size());
  added.lines.reserve(std::min(likelySize, kMostLinesWithoutIndex));
  added.lines.push_back(MakeLine(header));
  sectionIndex_.Add(added.name, lastFound_);
  return added;
}

std::uint32_t SettingsFile::Document::InsertLine(Section& section, const Line& line) {
  // Blank lines that set the next section apart stay at the end.
  auto place = section.lines.end();
  while (place != section.lines.begin() && (place - 1)->keySize == 0 &&
         TrimBlanks(WithoutLineEnd((place - 1)->Text())).empty()) {
    --place;
  }
  const auto position = static_cast<std::uint32_t>(place - section.lines.begin());
  section.lines.insert(place, line);
  if (section.index) section.index->Add(section.lines[position].Key(), position);
  return position;
}

SettingsFile::Document::Line SettingsFile::Document::NewLine(std::string_view key,
                                                             std::string_view value) {
  const std::string_view quote = NeedsQuotes(value) ? "\"" : "";
  const std::string_view text = Keep({key, "=", quote, value, quote, lineEnd_});
  return {.text = text.data(),
          .size = static_cast<std::uint32_t>(text.size()),
          .keyBegin = 0,
          .keySize = static_cast<std::uint32_t>(key.size()),
          .valueBegin = static_cast<std::uint32_t>(key.size() + 1)};
}

std::string_view SettingsFile::Document::Keep(std::initializer_list<std::string_view> pieces) {
  std::size_t size = 0;
  for (const std::string_view piece : pieces) size += piece.size();
  char* const room = added_.Allocate(size);
  char* end = room;
  for (const std::string_view piece : pieces) end = std::copy(piece.begin(), piece.end(), end);
  return {room, size};
}

void SettingsFile::Document::Render(const Sink& sink) const {
  constexpr std::size_t kPartBytes = std::size_t{256} << 10U;
  std::string part;
  part.reserve(kPartBytes);
  for (const Section& section : sections_) {
    for (const Line& line : section.lines) {
      if (part.size() + line.size > kPartBytes && !part.empty()) {
        sink(part);
        part.clear();
      }
      part.append(line.Text());
    }
  }
  if (!part.empty()) sink(part);
}

void SettingsFile::Document::ReplayWrites(SettingsFile& other) const {
  for (const auto& [section, line] : written_) {
    const Section& place = sections_[section];
    other.Write(place.name, place.lines[line].Key(), ValueOf(place.lines[line]));
  }
}

SettingsFile::SettingsFile() : SettingsFile(std::string()) {}

SettingsFile::SettingsFile(std::string content)
    : document_(std::make_unique<Document>(std::move(content))) {}

SettingsFile::~SettingsFile() = default;

std::optional<std::string_view> SettingsFile::Find(std::string_view section,
                                                   std::string_view key) const {
  return document_->Find(section, key);
}

std::string SettingsFile::Read(std::string_view section, std::string_view key,
                               std::string_view defaultValue) const {
  return std::string(Find(section, key).value_or(defaultValue));
}

bool SettingsFile::Write(std::string_view section, std::string_view key, std::string_view value) {
  return document_->Write(section, key, value);
}

void SettingsFile::Render(const Sink& sink) const { document_->Render(sink); }

std::string SettingsFile::Render() const {
  std::string content;
  Render([&content](std::string_view part) { content.append(part); });
  return content;
}

std::shared_ptr<SettingsFile> SettingsFile::Clone() const {
  auto clone = std::make_shared<SettingsFile>(Render());
  clone->document_->TakeWritesOf(*document_);
  return clone;
}

void SettingsFile::ReplayWrites(SettingsFile& other) const { document_->ReplayWrites(other); }

void SettingsFile::ForgetWrites() { document_->ForgetWrites(); }

}  // namespace tools
