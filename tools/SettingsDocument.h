// The lines of a settings file, and where its sections and keys stand among them. Private to
// SettingsFile.
//
// Lines are views into the file's content, or into text that was added since. A component of 50,000
// entries has 700,000 keys: a line takes 24 bytes and nothing is copied until it is changed.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "tools/SettingsFile.h"

namespace tools {

/// Hash and comparison that ignore ASCII case.
struct AsciiCaseHash {
  std::size_t operator()(std::string_view text) const;
};
struct AsciiCaseEqual {
  bool operator()(std::string_view a, std::string_view b) const;
};

/// Keeps pieces of text at fixed addresses, many to an allocation.
class TextArena {
 public:
  /// Room for `size` characters that stays as long as the arena.
  [[nodiscard]] char* Allocate(std::size_t size);

 private:
  std::vector<std::unique_ptr<char[]>> blocks_;
  char* free_ = nullptr;
  std::size_t freeSize_ = 0;
};

class SettingsFile::Document {
 public:
  explicit Document(std::string content);

  [[nodiscard]] std::optional<std::string_view> Find(std::string_view section,
                                                     std::string_view key) const;
  bool Write(std::string_view section, std::string_view key, std::string_view value);
  [[nodiscard]] std::string Render() const;
  void ReplayWrites(SettingsFile& other) const;
  void ForgetWrites() { written_.clear(); }
  /// Takes over the writes of a document with the same lines.
  void TakeWritesOf(const Document& other) { written_ = other.written_; }

 private:
  using NameIndex =
      std::unordered_map<std::string_view, std::uint32_t, AsciiCaseHash, AsciiCaseEqual>;

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
    /// Key to line, made when a section with many lines is first searched.
    mutable std::unique_ptr<NameIndex> index;
  };

  void Parse();
  void AddLine(std::string_view text);
  void IndexSections();
  [[nodiscard]] static Line MakeLine(std::string_view text);
  [[nodiscard]] static std::string_view ValueOf(const Line& line);
  [[nodiscard]] static std::optional<std::size_t> FindLine(const Section& section,
                                                           std::string_view key);
  /// The first section of that name; remembers it, because the next search is mostly for it too.
  [[nodiscard]] const Section* FindSection(std::string_view name) const;
  /// Makes the section that is written to the last one found, adding it where it is missing.
  [[nodiscard]] Section& SectionForWriting(std::string_view name);
  /// Adds a line at the section's end and returns its position, which stays: only blank lines are
  /// ever moved.
  [[nodiscard]] static std::uint32_t InsertKey(Section& section, const Line& line);
  /// The pieces joined, at a fixed address.
  [[nodiscard]] std::string_view Keep(std::initializer_list<std::string_view> pieces);

  std::string content_;
  std::string_view lineEnd_ = "\n";
  TextArena added_;  ///< text of lines that were written
  std::vector<Section> sections_;
  NameIndex sectionIndex_;
  /// Section and line of each write that is to be repeated.
  std::vector<std::pair<std::uint32_t, std::uint32_t>> written_;
  mutable std::uint32_t lastFound_ = 0;
};

}  // namespace tools
