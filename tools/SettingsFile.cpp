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

bool HasLineBreak(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; });
}

void CheckName(std::string_view name, const char* why) {
  Refuse(name.empty() || IsBlank(name.front()) || IsBlank(name.back()) || HasLineBreak(name), why,
         name);
}

/// True for a value that only survives between double quotes.
bool NeedsQuotes(std::string_view value) {
  return !value.empty() && (IsBlank(value.front()) || IsBlank(value.back()) ||
                            value.front() == '"' || value.back() == '"');
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
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i] != b[i] && LowerAscii(a[i]) != LowerAscii(b[i])) return false;
  }
  return true;
}

char* TextArena::Allocate(std::size_t size) {
  constexpr std::size_t kBlockBytes = std::size_t{64} << 10U;
  if (size > freeSize_) {
    freeSize_ = std::max(size, kBlockBytes);
    // Not initialized: every character is written before it is read.
    free_ = blocks_.emplace_back(new char[freeSize_]).get();
  }
  char* const room = free_;
  free_ += size;
  freeSize_ -= size;
  return room;
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
  IndexSections();
}

void SettingsFile::Document::IndexSections() {
  sectionIndex_.reserve(sections_.size());
  for (std::size_t i = 1; i < sections_.size(); ++i) {
    // The first of two sections of one name counts.
    sectionIndex_.emplace(sections_[i].name, static_cast<std::uint32_t>(i));
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

std::optional<std::size_t> SettingsFile::Document::FindLine(const Section& section,
                                                            std::string_view key) {
  const std::vector<Line>& lines = section.lines;
  if (lines.size() <= kMostLinesWithoutIndex) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
      // A line without a key has an empty one, and nobody asks for that.
      if (lines[i].keySize == key.size() && AsciiCaseEqual()(lines[i].Key(), key)) return i;
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
  const Section* const place = FindSection(section);
  if (place == nullptr || key.empty()) return std::nullopt;
  const std::optional<std::size_t> line = FindLine(*place, key);
  if (!line) return std::nullopt;
  return ValueOf(place->lines[*line]);
}

const SettingsFile::Document::Section* SettingsFile::Document::FindSection(
    std::string_view name) const {
  if (lastFound_ == 0 || !AsciiCaseEqual()(sections_[lastFound_].name, name)) {
    const auto found = sectionIndex_.find(name);
    if (found == sectionIndex_.end()) return nullptr;
    lastFound_ = found->second;
  }
  return &sections_[lastFound_];
}

bool SettingsFile::Document::Write(std::string_view section, std::string_view key,
                                   std::string_view value) {
  CheckName(section, "Ungültiger Abschnittsname in den Einstellungen");
  CheckName(key, "Ungültiger Schlüsselname in den Einstellungen");
  Refuse(key.find('=') != std::string_view::npos || key.front() == ';' || key.front() == '[',
         "Ungültiger Schlüsselname in den Einstellungen", key);
  Refuse(HasLineBreak(value), "Ein Wert der Einstellungen darf keinen Zeilenumbruch enthalten",
         value);

  Section& place = SectionForWriting(section);
  const std::optional<std::size_t> found = FindLine(place, key);
  if (found && ValueOf(place.lines[*found]) == value) return false;

  const std::string_view quote = NeedsQuotes(value) ? "\"" : "";
  const std::string_view name = found ? place.lines[*found].Key() : key;
  const Line line = MakeLine(Keep({name, "=", quote, value, quote, lineEnd_}));
  std::uint32_t position = 0;
  if (found) {
    position = static_cast<std::uint32_t>(*found);
    place.lines[position] = line;
  } else {
    position = InsertKey(place, line);
  }
  written_.emplace_back(lastFound_, position);
  return true;
}

SettingsFile::Document::Section& SettingsFile::Document::SectionForWriting(std::string_view name) {
  if (FindSection(name) != nullptr) return sections_[lastFound_];
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
  sectionIndex_.emplace(added.name, lastFound_);
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

std::string_view SettingsFile::Document::Keep(std::initializer_list<std::string_view> pieces) {
  std::size_t size = 0;
  for (const std::string_view piece : pieces) size += piece.size();
  char* const room = added_.Allocate(size);
  char* end = room;
  for (const std::string_view piece : pieces) end = std::copy(piece.begin(), piece.end(), end);
  return {room, size};
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
