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

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view WithoutLineEnd(std::string_view line) {
  if (line.ends_with('\n')) line.remove_suffix(1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

void Refuse(bool refused, const char* why, std::string_view text) {
  if (refused) throw Error(std::string(why).append(": ").append(text.substr(0, 200)));
}

void CheckName(std::string_view name, const char* why) {
  Refuse(name.empty() || name.size() != TrimBlanks(name).size() ||
             name.find_first_of("\r\n") != std::string_view::npos,
         why, name);
}

std::string Encoded(std::string_view value) {
  const bool quoted = !value.empty() && (IsBlank(value.front()) || IsBlank(value.back()) ||
                                         value.front() == '"' || value.back() == '"');
  std::string text(value);
  if (quoted) text.insert(0, 1, '"').push_back('"');
  return text;
}

}  // namespace

std::size_t AsciiCaseHash::operator()(std::string_view text) const {
  // FNV-1a over the lower-case bytes (http://www.isthe.com/chongo/tech/comp/fnv/).
  std::size_t hash = 14695981039346656037ULL;
  for (const char c : text) {
    hash = (hash ^ static_cast<unsigned char>(LowerAscii(c))) * 1099511628211ULL;
  }
  return hash;
}

bool AsciiCaseEqual::operator()(std::string_view a, std::string_view b) const {
  return a.size() == b.size() &&
         (a == b || std::equal(a.begin(), a.end(), b.begin(),
                               [](char x, char y) { return LowerAscii(x) == LowerAscii(y); }));
}

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
}

void SettingsFile::Document::AddLine(std::string_view text) {
  const std::string_view trimmed = TrimBlanks(WithoutLineEnd(text));
  if (trimmed.size() >= 2 && trimmed.front() == '[' && trimmed.back() == ']') {
    const std::string_view name = TrimBlanks(trimmed.substr(1, trimmed.size() - 2));
    sections_.emplace_back().name = name;
    // The first of two sections of one name counts.
    sectionIndex_.emplace(name, static_cast<std::uint32_t>(sections_.size() - 1));
  }
  sections_.back().lines.push_back(MakeLine(text));
}

SettingsFile::Document::Line SettingsFile::Document::MakeLine(std::string_view text) {
  Line line{.text = text.data(), .size = static_cast<std::uint32_t>(text.size())};
  const std::size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos || text[begin] == ';' || text[begin] == '[') return line;
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

std::optional<std::size_t> SettingsFile::Document::FindLine(const Section& section,
                                                            std::string_view key) {
  const std::vector<Line>& lines = section.lines;
  if (lines.size() <= kMostLinesWithoutIndex) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
      if (lines[i].keySize != 0 && AsciiCaseEqual()(lines[i].Key(), key)) return i;
    }
    return std::nullopt;
  }
  if (!section.index) {
    section.index = std::make_unique<NameIndex>();
    section.index->reserve(lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
      if (lines[i].keySize != 0) {
        section.index->emplace(lines[i].Key(), static_cast<std::uint32_t>(i));
      }
    }
  }
  const auto found = section.index->find(key);
  if (found == section.index->end()) return std::nullopt;
  return found->second;
}

std::optional<std::string_view> SettingsFile::Document::Find(std::string_view section,
                                                             std::string_view key) const {
  const auto found = sectionIndex_.find(section);
  if (found == sectionIndex_.end()) return std::nullopt;
  const Section& place = sections_[found->second];
  const std::optional<std::size_t> line = FindLine(place, key);
  if (!line) return std::nullopt;
  return ValueOf(place.lines[*line]);
}

bool SettingsFile::Document::Write(std::string_view section, std::string_view key,
                                   std::string_view value) {
  CheckName(section, "Ungültiger Abschnittsname in den Einstellungen");
  CheckName(key, "Ungültiger Schlüsselname in den Einstellungen");
  Refuse(key.find('=') != std::string_view::npos || key.front() == ';' || key.front() == '[',
         "Ungültiger Schlüsselname in den Einstellungen", key);
  Refuse(value.find_first_of("\r\n") != std::string_view::npos,
         "Ein Wert der Einstellungen darf keinen Zeilenumbruch enthalten", value);

  Section& place = SectionForWriting(section);
  const std::optional<std::size_t> found = FindLine(place, key);
  if (found && ValueOf(place.lines[*found]) == value) return false;

  std::string text(found ? place.lines[*found].Key() : key);
  text.append("=").append(Encoded(value)).append(lineEnd_);
  const Line line = MakeLine(Keep(std::move(text)));
  std::uint32_t position = 0;
  if (found) {
    position = static_cast<std::uint32_t>(*found);
    place.lines[position] = line;
  } else {
    position = InsertKey(place, line);
  }
  written_.emplace_back(lastWritten_, position);
  return true;
}

SettingsFile::Document::Section& SettingsFile::Document::SectionForWriting(std::string_view name) {
  if (AsciiCaseEqual()(sections_[lastWritten_].name, name)) return sections_[lastWritten_];
  const auto found = sectionIndex_.find(name);
  if (found != sectionIndex_.end()) {
    lastWritten_ = found->second;
    return sections_[lastWritten_];
  }
  std::vector<Line>& before = sections_.back().lines;
  if (!before.empty() && !WithoutLineEnd(before.back().Text()).empty()) {
    before.push_back(MakeLine(lineEnd_));
  }
  const std::string_view header = Keep(std::string("[").append(name).append("]").append(lineEnd_));
  lastWritten_ = static_cast<std::uint32_t>(sections_.size());
  Section& added = sections_.emplace_back();
  added.name = header.substr(1, name.size());
  added.lines.push_back(MakeLine(header));
  sectionIndex_.emplace(added.name, lastWritten_);
  return added;
}

std::uint32_t SettingsFile::Document::InsertKey(Section& section, const Line& line) {
  // Blank lines that set the next section apart stay at the end.
  auto place = section.lines.end();
  while (place != section.lines.begin() &&
         TrimBlanks(WithoutLineEnd((place - 1)->Text())).empty()) {
    --place;
  }
  const auto position = static_cast<std::uint32_t>(place - section.lines.begin());
  section.lines.insert(place, line);
  if (section.index) section.index->emplace(section.lines[position].Key(), position);
  return position;
}

std::string_view SettingsFile::Document::Keep(std::string text) {
  return added_.emplace_back(std::move(text));
}

std::string SettingsFile::Document::Render() const {
  std::size_t size = 0;
  for (const Section& section : sections_) {
    for (const Line& line : section.lines) size += line.size;
  }
  std::string content;
  content.reserve(size);
  for (const Section& section : sections_) {
    for (const Line& line : section.lines) content.append(line.Text());
  }
  return content;
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

std::string SettingsFile::Render() const { return document_->Render(); }

std::shared_ptr<SettingsFile> SettingsFile::Clone() const {
  auto clone = std::make_shared<SettingsFile>(Render());
  clone->document_->TakeWritesOf(*document_);
  return clone;
}

void SettingsFile::ReplayWrites(SettingsFile& other) const { document_->ReplayWrites(other); }

void SettingsFile::ForgetWrites() { document_->ForgetWrites(); }

}  // namespace tools
