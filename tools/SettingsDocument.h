// The lines of a settings file, and where its sections and keys stand among them. Private to
// SettingsFile.
//
// Lines are views into the file's content, or into text that was added since. A component of 50,000
// entries has 700,000 keys: a line takes 24 bytes and nothing is copied until it is changed.
#pragma once

#include <cstdint>
#include <deque>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/NameIndex.h"
#include "tools/SettingsFile.h"
#include "tools/TextArena.h"

namespace tools {

class SettingsFile::Document {
 public:
  explicit Document(std::string content);

  [[nodiscard]] std::optional<std::string_view> Find(std::string_view section,
                                                     std::string_view key) const;
  bool Write(std::string_view section, std::string_view key, std::string_view value);
  void Render(const Sink& sink) const;
  void ReplayWrites(SettingsFile& other) const;
  void ForgetWrites() { written_.clear(); }
  /// Takes over the writes of a document with the same lines.
  void TakeWritesOf(const Document& other) { written_ = other.written_; }

 private:
  /// One line with its line end; `keySize` is 0 where it is no Key=Value line.
  struct Line {
    const char* text = nullptr;
    std::uint32_t size = 0;
    std::uint32_t keyBegin = 0;
    std::uint32_t keySize = 0;
    std::uint32_t valueBegin = 0;  ///< behind the "="

    [[nodiscard]] std::string_view Text() const { return {text, size}; }
    [[nodiscard]] std::string_view Key() const { return {text + keyBegin, keySize}; }
  };

  /// The lines of a section, its header first; the lines before the first header are a section
  /// without a name that is never found.
  struct Section {
    std::string_view name;
    std::vector<Line> lines;
    /// Finds the lines by key; made when a section with many lines is first searched.
    mutable std::unique_ptr<NameIndex> index;
  };

  void Parse();
  void AddLine(std::string_view text);
  void IndexSections();
  [[nodiscard]] static Line MakeLine(std::string_view text);
  [[nodiscard]] static std::string_view ValueOf(const Line& line);

  /// The first section of that name; remembers it, because the next search is mostly for it too.
  [[nodiscard]] const Section* FindSection(std::string_view name) const;
  [[nodiscard]] static std::optional<std::uint32_t> FindLine(const Section& section,
                                                             std::string_view key);
  static void IndexLines(const Section& section);

  /// Adds a section at the end and makes it the last one found.
  Section& AddSection(std::string_view name);
  /// Adds a line at the section's end and returns its position, which stays: only blank lines are
  /// ever moved.
  static std::uint32_t InsertLine(Section& section, const Line& line);
  /// A line in text of its own.
  [[nodiscard]] Line NewLine(std::string_view key, std::string_view value);
  /// The pieces joined, at a fixed address.
  [[nodiscard]] std::string_view Keep(std::initializer_list<std::string_view> pieces);

  std::string content_;
  std::string_view lineEnd_ = "\n";
  TextArena added_;  ///< text of lines that were written
  std::vector<Section> sections_;
  NameIndex sectionIndex_;
  /// Section and line of each write that is to be repeated.
  std::deque<std::pair<std::uint32_t, std::uint32_t>> written_;
  mutable std::uint32_t lastFound_ = 0;
};

}  // namespace tools
