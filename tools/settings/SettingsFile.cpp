#include "tools/settings/SettingsFile.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "tools/Error.h"
#include "tools/Text.h"

namespace tools {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

[[noreturn]] void Refuse(const char* why, std::string_view text) {
  throw Error(std::string(why).append(": ").append(text.substr(0, 200)));
}

bool HasBlankAround(std::string_view text) { return IsBlank(text.front()) || IsBlank(text.back()); }

bool HasLineBreak(std::string_view text) {
  return text.find('\n') != std::string_view::npos || text.find('\r') != std::string_view::npos;
}

void CheckKey(std::string_view key) {
  if (key.empty() || HasBlankAround(key) || key.front() == ';' || key.front() == '[' ||
      key.find('=') != std::string_view::npos || HasLineBreak(key)) {
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

std::string MakeLine(std::string_view key, std::string_view value, std::string_view lineEnd) {
  const std::string_view quote = NeedsQuotes(value) ? "\"" : "";
  std::string line;
  line.reserve(key.size() + value.size() + 5);
  line.append(key).append("=").append(quote).append(value).append(quote).append(lineEnd);
  return line;
}

std::string_view WithoutLineEnd(std::string_view line) {
  line.remove_suffix(1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

bool IsBlankLine(std::string_view line) { return TrimBlanks(WithoutLineEnd(line)).empty(); }

/// The name between the brackets of a header line that begins with "["; nothing where it is none.
std::optional<std::string_view> NameInHeader(std::string_view line) {
  line = TrimBlanks(WithoutLineEnd(line));
  if (line.size() < 2 || line.back() != ']') return std::nullopt;
  return TrimBlanks(line.substr(1, line.size() - 2));
}

/// The key of a Key=Value line; empty for other lines.
std::string_view KeyOf(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return {};
  const std::string_view key = TrimBlanks(line.substr(0, equals));
  return key.starts_with(';') || key.starts_with('[') ? std::string_view() : key;
}

std::string_view ValueOf(std::string_view line) {
  std::string_view value = TrimBlanks(WithoutLineEnd(line.substr(line.find('=') + 1)));
  if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
    value = value.substr(1, value.size() - 2);
  }
  return value;
}

}  // namespace

SettingsFile::SettingsFile() : SettingsFile(std::string()) {}

SettingsFile::SettingsFile(std::string content) : text_(std::move(content)) {
  const std::size_t firstBreak = text_.find('\n');
  if (firstBreak != std::string::npos && firstBreak > 0 && text_[firstBreak - 1] == '\r') {
    lineEnd_ = "\r\n";
  }
  CheckRoom(lineEnd_.size());
  // With a line end behind the last line every line can be followed by another.
  if (!text_.empty() && text_.back() != '\n') text_.append(lineEnd_);
  FindSections();
}

SettingsFile::SettingsFile(const SettingsFile& other)
    : text_(other.text_),
      lineEnd_(other.lineEnd_),
      sections_(other.sections_),
      added_(other.added_),
      replaced_(other.replaced_),
      written_(other.written_) {}

SettingsFile::~SettingsFile() = default;

void SettingsFile::FindSections() {
  const std::string_view text = text_;
  const std::size_t textBegin = text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
  auto begin = static_cast<Place>(textBegin);
  // A header is a line whose first "[" has only blanks before it. Going from "[" to "[" passes over
  // the lines of a large file without looking at each.
  for (std::size_t i = text.find('[', begin); i != std::string_view::npos;) {
    std::size_t lineBegin = i;
    while (lineBegin > textBegin && IsBlank(text[lineBegin - 1])) --lineBegin;
    const bool beginsLine = lineBegin == textBegin || text[lineBegin - 1] == '\n';
    const std::size_t next = beginsLine ? text.find('\n', i) + 1 : i + 1;
    if (beginsLine && NameInHeader(text.substr(i, next - i))) {
      sections_.push_back({begin, static_cast<Place>(lineBegin)});
      begin = static_cast<Place>(lineBegin);
    }
    i = text.find('[', next);
  }
  sections_.push_back({begin, static_cast<Place>(text.size())});
}

void SettingsFile::CheckRoom(std::size_t bytes) const {
  if (bytes > std::numeric_limits<Place>::max() - text_.size()) {
    throw Error("Die Einstellungsdatei ist zu groß");
  }
}

std::string_view SettingsFile::Text(Place begin, Place end) const {
  return std::string_view(text_).substr(begin, end - begin);
}

std::string_view SettingsFile::LineAt(Place line) const {
  return Text(line, static_cast<Place>(text_.find('\n', line) + 1));
}

std::string_view SettingsFile::CurrentLine(Place line) const {
  const auto replaced = replaced_.find(line);
  return LineAt(replaced == replaced_.end() ? line : replaced->second);
}

std::string_view SettingsFile::KeyAt(Place line) const { return KeyOf(LineAt(line)); }

std::string_view SettingsFile::NameOf(SectionNumber section) const {
  const std::size_t header = text_.find('[', sections_[section].begin);
  return *NameInHeader(LineAt(static_cast<Place>(header)));
}

std::optional<SettingsFile::SectionNumber> SettingsFile::FindSection(std::string_view name) const {
  // The keys of a section are mostly asked for one after the other.
  if (lastSection_ && lastName_ == name) return lastSection_;
  const auto nameAt = [this](SectionNumber section) { return NameOf(section); };
  if (!sectionIndex_) {
    sectionIndex_.emplace();
    for (SectionNumber i = 1; i < sections_.size(); ++i) sectionIndex_->Add(NameOf(i), i, nameAt);
  }
  lastSection_ = sectionIndex_->Find(name, nameAt);
  lastName_ = name;
  return lastSection_;
}

template <typename Visit>
void SettingsFile::ForEachKey(Place begin, Place end, Visit visit) const {
  while (begin < end) {
    const std::string_view line = LineAt(begin);
    const std::string_view key = KeyOf(line);
    if (!key.empty()) visit(begin, key);
    begin += static_cast<Place>(line.size());
  }
}

template <typename Visit>
void SettingsFile::ForEachKey(SectionNumber section, Visit visit) const {
  ForEachKey(sections_[section].begin, sections_[section].end, visit);
  const auto added = added_.find(section);
  if (added == added_.end()) return;
  for (const Place line : added->second) visit(line, KeyOf(LineAt(line)));
}

// A file of 50,000 entries is 50,000 small sections: an index of each would take longer to make
// than its few keys take to search, and many times the room.
bool SettingsFile::IsLarge(SectionNumber section) const {
  constexpr std::size_t kMostBytes = 2048;
  return sections_[section].end - sections_[section].begin > kMostBytes || added_.contains(section);
}

NameIndex& SettingsFile::KeyIndexOf(SectionNumber section) const {
  const auto found = keyIndexes_.try_emplace(section);
  NameIndex& index = found.first->second;
  if (found.second) {
    ForEachKey(section, [this, &index](Place line, std::string_view key) {
      index.Add(key, line, [this](Place at) { return KeyAt(at); });
    });
  }
  return index;
}

const std::vector<SettingsFile::Key>& SettingsFile::KeysOf(SectionNumber section) const {
  if (keysSection_ != section) {
    keys_.clear();
    ForEachKey(section, [this](Place line, std::string_view key) {
      const auto begin = static_cast<Place>(key.data() - text_.data());
      keys_.push_back({line, begin, static_cast<Place>(begin + key.size())});
    });
    keysSection_ = section;
  }
  return keys_;
}

std::optional<SettingsFile::Place> SettingsFile::FindLine(SectionNumber section,
                                                          std::string_view key) const {
  if (key.empty()) return std::nullopt;
  if (IsLarge(section)) {
    return KeyIndexOf(section).Find(key, [this](Place line) { return KeyAt(line); });
  }
  for (const Key& other : KeysOf(section)) {
    if (EqualIgnoringAsciiCase(Text(other.begin, other.end), key)) return other.line;
  }
  return std::nullopt;
}

void SettingsFile::ForEachSection(const std::function<void(std::string_view name)>& visit) const {
  for (SectionNumber i = 1; i < sections_.size(); ++i) visit(NameOf(i));
}

std::optional<std::string_view> SettingsFile::Find(std::string_view section,
                                                   std::string_view key) const {
  const auto place = FindSection(section);
  const auto line = place ? FindLine(*place, key) : std::nullopt;
  if (!line) return std::nullopt;
  return ValueOf(CurrentLine(*line));
}

std::string SettingsFile::Read(std::string_view section, std::string_view key,
                               std::string_view defaultValue) const {
  return std::string(Find(section, key).value_or(defaultValue));
}

bool SettingsFile::Write(std::string_view section, std::string_view key, std::string_view value) {
  CheckKey(key);
  CheckValue(value);
  const auto found = FindSection(section);
  if (!found) CheckSection(section);
  std::optional<Place> line;
  if (found) line = FindLine(*found, key);
  if (line && ValueOf(CurrentLine(*line)) == value) return false;
  // A line that changes keeps the spelling of its key.
  const std::string text = MakeLine(line ? KeyOf(LineAt(*line)) : key, value, lineEnd_);
  constexpr std::size_t kAroundName = 6;  // brackets, line ends
  CheckRoom(section.size() + kAroundName + text.size());
  // Nothing was changed until here, and nothing is refused from here on.
  const SectionNumber place = found ? *found : AddSection(section);
  if (written_.empty() || written_.back().section != place) {
    written_.push_back({place, static_cast<Place>(text_.size())});
  }
  if (line) {
    replaced_[*line] = Append(text);
  } else {
    AddLine(place, text, key.size());
  }
  return true;
}

SettingsFile::Place SettingsFile::Append(std::string_view text) {
  const auto place = static_cast<Place>(text_.size());
  text_.append(text);
  return place;
}

SettingsFile::SectionNumber SettingsFile::AddSection(std::string_view name) {
  const Section& last = sections_.back();
  // A blank line sets the new section off, unless one is there.
  const bool follows = last.begin < last.end && EndWithoutBlankLines(last) == last.end;
  std::string header(follows ? lineEnd_ : "");
  header.append("[").append(name).append("]").append(lineEnd_);
  const Place begin = Append(header);
  sections_.push_back({begin, static_cast<Place>(text_.size())});
  const auto number = static_cast<SectionNumber>(sections_.size() - 1);
  sectionIndex_->Add(NameOf(number), number, [this](SectionNumber at) { return NameOf(at); });
  lastName_ = NameOf(number);
  lastSection_ = number;
  return number;
}

void SettingsFile::AddLine(SectionNumber section, std::string_view line, std::size_t keySize) {
  Section& place = sections_[section];
  // Appending to the last section makes the section longer; any other needs the table, and so does
  // one that ends in blank lines, which stay its end.
  const bool endsText = place.end == text_.size() && EndWithoutBlankLines(place) == place.end;
  const Place added = Append(line);
  if (endsText) {
    place.end = static_cast<Place>(text_.size());
  } else {
    added_[section].push_back(added);
  }
  const Key key{added, added, static_cast<Place>(added + keySize)};
  if (keysSection_ == section) keys_.push_back(key);
  const auto index = keyIndexes_.find(section);
  if (index == keyIndexes_.end()) return;
  index->second.Add(Text(key.begin, key.end), added, [this](Place at) { return KeyAt(at); });
}

SettingsFile::Place SettingsFile::EndWithoutBlankLines(const Section& section) const {
  Place end = section.end;
  while (end > section.begin) {
    // The line that ends there begins behind the line break before it.
    const std::size_t before =
        end - section.begin < 2 ? std::string::npos : text_.rfind('\n', end - 2);
    const Place begin = before == std::string::npos || before < section.begin
                            ? section.begin
                            : static_cast<Place>(before + 1);
    if (!IsBlankLine(Text(begin, end))) break;
    end = begin;
  }
  return end;
}

void SettingsFile::Render(const Sink& sink) const {
  constexpr std::size_t kPartBytes = std::size_t{256} << 10U;
  std::string part;
  part.reserve(kPartBytes);
  const auto give = [&](std::string_view text) {
    if (part.size() + text.size() > kPartBytes && !part.empty()) {
      sink(part);
      part.clear();
    }
    if (text.size() > kPartBytes) {
      sink(text);
    } else {
      part.append(text);
    }
  };
  // In the order of the text: it is then given in a few long pieces, not line by line.
  std::vector<std::pair<Place, Place>> replaced(replaced_.begin(), replaced_.end());
  std::sort(replaced.begin(), replaced.end());
  const auto giveLines = [&](Place begin, Place end) {
    auto next =
        std::lower_bound(replaced.begin(), replaced.end(), std::pair<Place, Place>(begin, 0));
    for (; next != replaced.end() && next->first < end; ++next) {
      give(Text(begin, next->first));
      give(LineAt(next->second));
      begin = next->first + static_cast<Place>(LineAt(next->first).size());
    }
    give(Text(begin, end));
  };
  give(Text(0, sections_.front().begin));
  for (SectionNumber i = 0; i < sections_.size(); ++i) {
    const Section& section = sections_[i];
    const auto added = added_.find(i);
    if (added == added_.end()) {
      giveLines(section.begin, section.end);
      continue;
    }
    const Place end = EndWithoutBlankLines(section);
    giveLines(section.begin, end);
    for (const Place line : added->second) give(CurrentLine(line));
    give(Text(end, section.end));
  }
  if (!part.empty()) sink(part);
}

std::string SettingsFile::Render() const {
  std::string content;
  content.reserve(text_.size());
  Render([&content](std::string_view part) { content.append(part); });
  return content;
}

std::shared_ptr<SettingsFile> SettingsFile::Clone() const {
  return std::shared_ptr<SettingsFile>(new SettingsFile(*this));
}

void SettingsFile::ReplayWrites(SettingsFile& other) const {
  for (std::size_t i = 0; i < written_.size(); ++i) {
    const std::string_view section = NameOf(written_[i].section);
    const std::size_t end = i + 1 < written_.size() ? written_[i + 1].begin : text_.size();
    ForEachKey(written_[i].begin, static_cast<Place>(end), [&](Place line, std::string_view key) {
      other.Write(section, key, ValueOf(LineAt(line)));
    });
  }
}

}  // namespace tools
