// One settings file in memory: sections of Key=Value lines, edited and rendered again.
//
// The text is UTF-8, lines end in LF (CR LF and a byte-order mark are accepted and kept). A line
// that begins with ";" is a comment. The value is everything after the first "=" without the blanks
// around it; one pair of outer double quotes, if both are there, is taken off and protects blanks
// or quotes at a value's ends. Sections and keys are found ignoring ASCII case, and the first of
// two equal ones counts. Comments, unknown lines, the order of lines and bytes that are not UTF-8
// survive an edit.
//
// The text as it was read is never changed: a line that is written is appended behind it, and
// tables say whose place it takes. So places in the text stay right, and the writes of a batch can
// be repeated on what another program has stored meanwhile.
//
// Searching a const object changes what it remembers of earlier searches (the mutable members): one
// thread at a time uses an object, readers too.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tools/settings/NameIndex.h"

namespace tools {

class SettingsFile {
 public:
  /// An empty file.
  SettingsFile();
  /// The file with this content. Any bytes are accepted; raises Error beyond 4 GiB.
  explicit SettingsFile(std::string content);
  ~SettingsFile();
  SettingsFile& operator=(const SettingsFile&) = delete;

  /// True when there is a section at all.
  [[nodiscard]] bool HasSections() const { return sections_.size() > 1; }

  /// Calls `visit` with each section's name, in order; a name may come twice, and the first counts.
  void ForEachSection(const std::function<void(std::string_view name)>& visit) const;

  /// The value of a key, or nothing. The view lives as long as this object and its next Write.
  [[nodiscard]] std::optional<std::string_view> Find(std::string_view section,
                                                     std::string_view key) const;

  /// The value of a key, or the default.
  [[nodiscard]] std::string Read(std::string_view section, std::string_view key,
                                 std::string_view defaultValue) const;

  /// Sets a value, adding section and key where they are missing. Returns false when it stood there
  /// already. Raises Error for a line break in the value, for a name that a line cannot hold (an
  /// empty one, one with line breaks or blanks around it, a key with "=" or a leading ";" or "["),
  /// and when all that was written comes to 4 GiB; nothing is changed then.
  bool Write(std::string_view section, std::string_view key, std::string_view value);

  /// Receives a part of the content.
  using Sink = std::function<void(std::string_view part)>;

  /// Gives the whole content, to be written to disk, to `sink` in parts that follow each other.
  void Render(const Sink& sink) const;
  /// The whole content.
  [[nodiscard]] std::string Render() const;

  /// A separate copy, writes included.
  [[nodiscard]] std::shared_ptr<SettingsFile> Clone() const;

  /// Repeats on `other` the writes made on this object since the last ForgetWrites.
  void ReplayWrites(SettingsFile& other) const;
  /// The writes made so far are safe elsewhere and are not repeated any more.
  void ForgetWrites() { written_.clear(); }

 private:
  /// A place in text_: the first byte of a line.
  using Place = std::uint32_t;
  /// A position in sections_.
  using SectionNumber = std::uint32_t;

  /// The part of text_ from a section's header to the next one. Nothing but blank lines stands
  /// before the header.
  struct Section {
    Place begin = 0;
    Place end = 0;
  };
  /// A key of the line at `line`.
  struct Key {
    Place line = 0;
    Place begin = 0;
    Place end = 0;
  };
  /// Lines that were written to one section after each other: the part of text_ from `begin` up to
  /// where the next ones begin. Lines without a key may be among them.
  struct WrittenLines {
    SectionNumber section = 0;
    Place begin = 0;
  };

  SettingsFile(const SettingsFile& other);

  void FindSections();
  void CheckRoom(std::size_t bytes) const;

  [[nodiscard]] std::string_view Text(Place begin, Place end) const;
  [[nodiscard]] std::string_view LineAt(Place line) const;
  /// The line that stands at a line's place by now.
  [[nodiscard]] std::string_view CurrentLine(Place line) const;
  [[nodiscard]] std::string_view KeyAt(Place line) const;
  [[nodiscard]] std::string_view NameOf(SectionNumber section) const;

  [[nodiscard]] std::optional<SectionNumber> FindSection(std::string_view name) const;
  [[nodiscard]] std::optional<Place> FindLine(SectionNumber section, std::string_view key) const;
  /// Calls `visit(Place line, std::string_view key)` for the Key=Value lines of a part of text_ or
  /// of a section.
  template <typename Visit>
  void ForEachKey(Place begin, Place end, Visit visit) const;
  template <typename Visit>
  void ForEachKey(SectionNumber section, Visit visit) const;
  /// True for a section that is searched by an index, not key by key.
  [[nodiscard]] bool IsLarge(SectionNumber section) const;
  [[nodiscard]] NameIndex& KeyIndexOf(SectionNumber section) const;
  [[nodiscard]] const std::vector<Key>& KeysOf(SectionNumber section) const;

  Place Append(std::string_view text);
  SectionNumber AddSection(std::string_view name);
  void AddLine(SectionNumber section, std::string_view line, std::size_t keySize);
  /// Where a section's blank lines at its end begin.
  [[nodiscard]] Place EndWithoutBlankLines(const Section& section) const;

  std::string text_;  ///< the content as it was read, and behind it every line written since
  std::string_view lineEnd_ = "\n";
  /// The first one is what stands before all headers. No vector: while that grows, it would take
  /// thrice the room for a file of nothing but headers.
  std::deque<Section> sections_;
  /// Lines that follow a section's text, but stand before blank lines at its end.
  std::unordered_map<SectionNumber, std::vector<Place>> added_;
  std::unordered_map<Place, Place> replaced_;  ///< lines, and the lines that took their places
  std::vector<WrittenLines> written_;          ///< what ReplayWrites is to repeat

  // What searches of a const object remember. The indexes are made when they are first needed: most
  // sections are never searched.
  mutable std::optional<NameIndex> sectionIndex_;
  mutable std::unordered_map<SectionNumber, NameIndex> keyIndexes_;
  // The section found last and the keys of the small section searched last: the next search is
  // mostly for them too.
  mutable std::string lastName_;
  mutable std::optional<SectionNumber> lastSection_;
  mutable std::vector<Key> keys_;
  mutable std::optional<SectionNumber> keysSection_;
};

}  // namespace tools
