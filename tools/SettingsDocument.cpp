#include "tools/SettingsDocument.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "tools/Error.h"
#include "tools/Text.h"

namespace tools {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
/// Sections with a longer text than this keep their lines once they are told apart.
constexpr std::size_t kMostBytesToParseAgain = 4096;

[[noreturn]] void Refuse(const char* why, std::string_view text) {
  throw Error(std::string(why).append(": ").append(text.substr(0, 200)));
}

bool HasBlankAround(std::string_view text) {
  return IsSettingsBlank(text.front()) || IsSettingsBlank(text.back());
}

bool IsLineBreak(char c) { return c == '\n' || c == '\r'; }

bool HasLineBreak(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return IsLineBreak(c); });
}

void CheckKey(std::string_view key) {
  if (key.empty() || HasBlankAround(key) || key.front() == ';' || key.front() == '[' ||
      std::any_of(key.begin(), key.end(), [](char c) { return c == '=' || IsLineBreak(c); })) {
    Refuse("Ungültiger Schlüsselname in den Einstellungen", key);
  }
}

void CheckSection(std::string_view name) {
  if (name.empty() || HasBlankAround(name) || HasLineBreak(name)) {
    Refuse("Ungültiger Abschnittsname in den Einstellungen", name);
  }
}

void CheckValue(std::string_view value) {
  if (HasLineBreak(value)) {
    Refuse("Ein Wert der Einstellungen darf keinen Zeilenumbruch enthalten", value);
  }
}

/// True for a value that only survives between double quotes.
bool NeedsQuotes(std::string_view value) {
  return !value.empty() && (HasBlankAround(value) || value.front() == '"' || value.back() == '"');
}

/// The name between the brackets of a header line that begins with "[", without its line end;
/// nothing where it is no header.
std::optional<std::string_view> NameInHeader(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  line = TrimBlanks(line);
  if (line.size() < 2 || line.back() != ']') return std::nullopt;
  return TrimBlanks(line.substr(1, line.size() - 2));
}

std::string_view Between(const char* begin, const char* end) {
  return {begin, static_cast<std::size_t>(end - begin)};
}

char* Put(std::string_view text, char* place) {
  std::memcpy(place, text.data(), text.size());
  return place + text.size();
}

}  // namespace

SettingsFile::Document::Document(std::string content) : content_(std::move(content)) {
  const std::size_t firstBreak = content_.find('\n');
  if (firstBreak != std::string::npos && firstBreak > 0 && content_[firstBreak - 1] == '\r') {
    lineEnd_ = "\r\n";
  }
  // With a line end behind the last line every line can be followed by another.
  if (!content_.empty() && content_.back() != '\n') content_.append(lineEnd_);
  std::string_view text = content_;
  if (text.starts_with(kByteOrderMark)) {
    byteOrderMark_ = text.substr(0, kByteOrderMark.size());
    text.remove_prefix(kByteOrderMark.size());
  }
  FindSections(text);
  IndexSections();
}

void SettingsFile::Document::FindSections(std::string_view text) {
  const char* const textEnd = text.data() + text.size();
  const char* sectionBegin = text.data();
  std::string_view name;
  // A header is a line whose first "[" has only blanks before it.
  for (std::size_t i = text.find('['); i != std::string_view::npos; i = text.find('[', i)) {
    std::size_t lineBegin = i;
    while (lineBegin > 0 && IsSettingsBlank(text[lineBegin - 1])) --lineBegin;
    const bool beginsLine = lineBegin == 0 || text[lineBegin - 1] == '\n';
    const std::size_t lineEnd = beginsLine ? text.find('\n', i) : i + 1;
    const auto header = beginsLine ? NameInHeader(text.substr(i, lineEnd - i)) : std::nullopt;
    if (header) {
      const char* const begin = text.data() + lineBegin;
      sections_.push_back({name, Between(sectionBegin, begin), nullptr});
      sectionBegin = begin;
      name = *header;
    }
    i = lineEnd;
  }
  sections_.push_back({name, Between(sectionBegin, textEnd), nullptr});
}

void SettingsFile::Document::IndexSections() {
  sectionIndex_.Reserve(sections_.size());
  const auto nameAt = [this](std::uint32_t i) { return sections_[i].name; };
  for (std::uint32_t i = 1; i < sections_.size(); ++i) {
    // The first of two sections of one name counts.
    sectionIndex_.AddIfNew(sections_[i].name, i, nameAt);
  }
}

std::uint32_t SettingsFile::Document::FindSection(std::string_view name) const {
  if (lastFound_ == kNone || sections_[lastFound_].name != name) {
    const auto nameAt = [this](std::uint32_t i) { return sections_[i].name; };
    lastFound_ = sectionIndex_.Find(name, nameAt).value_or(kNone);
  }
  return lastFound_;
}

SettingsLines& SettingsFile::Document::LinesOf(std::uint32_t section) const {
  const Section& place = sections_[section];
  if (place.lines) return *place.lines;
  if (parsedSection_ != section) {
    parsed_.Parse(place.text);
    parsedSection_ = section;
  }
  return place.text.size() > kMostBytesToParseAgain ? KeepLines(section) : parsed_;
}

SettingsLines& SettingsFile::Document::KeepLines(std::uint32_t section) const {
  Section& place = sections_[section];
  if (!place.lines) {
    if (parsedSection_ != section) parsed_.Parse(place.text);
    parsedSection_ = kNone;
    place.lines = std::make_unique<SettingsLines>(std::move(parsed_));
    parsed_ = SettingsLines();
  }
  return *place.lines;
}

std::optional<std::string_view> SettingsFile::Document::Find(std::string_view section,
                                                             std::string_view key) const {
  const std::uint32_t place = FindSection(section);
  if (place == kNone || key.empty()) return std::nullopt;
  const SettingsLines& lines = LinesOf(place);
  const std::optional<std::uint32_t> line = lines.Find(key);
  if (!line) return std::nullopt;
  return lines.At(*line).Value();
}

bool SettingsFile::Document::Write(std::string_view section, std::string_view key,
                                   std::string_view value) {
  CheckKey(key);
  CheckValue(value);
  std::uint32_t place = FindSection(section);
  if (place == kNone) {
    CheckSection(section);
    place = AddSection(section);
  }
  SettingsLines& lines = LinesOf(place);
  std::optional<std::uint32_t> position = lines.Find(key);
  if (!position) {
    position = AddLine(place, lines, NewLine(key, value));
  } else if (lines.At(*position).Value() == value) {
    return false;
  } else {
    SettingsLines& kept = KeepLines(place);
    kept.Replace(*position, NewLine(kept.At(*position).Key(), value));
  }
  RememberWrite(place, *position);
  return true;
}

std::uint32_t SettingsFile::Document::AddSection(std::string_view name) {
  const auto last = static_cast<std::uint32_t>(sections_.size() - 1);
  SettingsLines& before = LinesOf(last);
  if (before.Size() > 0 && !before.EndBlank()) {
    char* const blank = added_.Allocate(lineEnd_.size());
    Put(lineEnd_, blank);
    AddLine(last, before, SettingsLine::Parse({blank, lineEnd_.size()}));
  }
  char* const header = added_.Allocate(name.size() + 2 + lineEnd_.size());
  const char* const end = Put(lineEnd_, Put("]", Put(name, Put("[", header))));
  lastFound_ = last + 1;
  sections_.push_back({{header + 1, name.size()}, Between(header, end), nullptr});
  sectionIndex_.Add(sections_.back().name, lastFound_);
  return lastFound_;
}

std::uint32_t SettingsFile::Document::AddLine(std::uint32_t section, SettingsLines& lines,
                                              const SettingsLine& line) {
  Section& place = sections_[section];
  const bool follows = place.text.data() + place.text.size() == line.text;
  if (place.lines || !follows || lines.EndBlank()) return KeepLines(section).Add(line);
  place.text = {place.text.data(), place.text.size() + line.size};
  return lines.Add(line);
}

SettingsLine SettingsFile::Document::NewLine(std::string_view key, std::string_view value) {
  const bool quoted = NeedsQuotes(value);
  const std::size_t size = key.size() + 1 + value.size() + (quoted ? 2 : 0) + lineEnd_.size();
  char* const text = added_.Allocate(size);
  char* end = Put(key, text);
  *end++ = '=';
  if (quoted) *end++ = '"';
  end = Put(value, end);
  if (quoted) *end++ = '"';
  Put(lineEnd_, end);
  return {.text = text,
          .size = static_cast<std::uint32_t>(size),
          .keyBegin = 0,
          .keySize = static_cast<std::uint32_t>(key.size()),
          .valueBegin = static_cast<std::uint32_t>(key.size() + 1),
          .keyTag = SettingsLine::TagOf(key)};
}

void SettingsFile::Document::RememberWrite(std::uint32_t section, std::uint32_t line) {
  if (!written_.empty()) {
    WrittenLines& last = written_.back();
    if (last.section == section && last.first + last.count == line) {
      ++last.count;
      return;
    }
  }
  written_.push_back({section, line, 1});
}

void SettingsFile::Document::Render(const Sink& sink) const {
  constexpr std::size_t kPartBytes = std::size_t{256} << 10U;
  std::string part;
  part.reserve(kPartBytes);
  const auto add = [&](std::string_view text) {
    if (part.size() + text.size() > kPartBytes && !part.empty()) {
      sink(part);
      part.clear();
    }
    part.append(text);
  };
  add(byteOrderMark_);
  for (const Section& section : sections_) {
    if (section.lines) {
      for (const SettingsLine& line : *section.lines) add(line.Text());
    } else {
      add(section.text);
    }
  }
  if (!part.empty()) sink(part);
}

std::size_t SettingsFile::Document::Size() const {
  std::size_t size = byteOrderMark_.size();
  for (const Section& section : sections_) {
    size += section.lines ? section.lines->TextSize() : section.text.size();
  }
  return size;
}

void SettingsFile::Document::ReplayWrites(SettingsFile& other) const {
  for (const WrittenLines& written : written_) {
    for (std::uint32_t i = written.first; i < written.first + written.count; ++i) {
      const SettingsLine& line = LinesOf(written.section).At(i);
      other.Write(sections_[written.section].name, line.Key(), line.Value());
    }
  }
}

}  // namespace tools
