// The sections of a settings file as ranges of its text. Private to SettingsFile.
//
// A component of 50,000 entries has 700,000 lines in 50,000 sections. Only the sections' headers
// are looked for in advance; the lines of a section are told apart when it is searched, and kept
// apart only where a section is large or is changed. A new file grows in the same form: a line
// added to the section that was added last just lengthens that section's text.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/NameIndex.h"
#include "tools/SettingsFile.h"
#include "tools/SettingsLines.h"
#include "tools/TextArena.h"

namespace tools {

class SettingsFile::Document {
 public:
  explicit Document(std::string content);

  [[nodiscard]] std::optional<std::string_view> Find(std::string_view section,
                                                     std::string_view key) const;
  bool Write(std::string_view section, std::string_view key, std::string_view value);
  void Render(const Sink& sink) const;
  /// The bytes that Render gives.
  [[nodiscard]] std::size_t Size() const;
  void ReplayWrites(SettingsFile& other) const;
  void ForgetWrites() { written_.clear(); }
  /// Takes over the writes of a document with the same lines.
  void TakeWritesOf(const Document& other) { written_ = other.written_; }

 private:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  /// A section's header and its lines up to the next header. The lines before the first header are
  /// a section that is never found.
  struct Section {
    std::string_view name;
    std::string_view text;                 ///< the whole section, where `lines` is null
    std::unique_ptr<SettingsLines> lines;  ///< of a section that is large or was changed
  };

  /// Lines of one section that were written one behind the other.
  struct WrittenLines {
    std::uint32_t section = 0;
    std::uint32_t first = 0;
    std::uint32_t count = 0;
  };

  void FindSections(std::string_view text);
  void IndexSections();

  /// The first section of that name, or kNone; remembers it, because the next search is mostly for
  /// it too.
  [[nodiscard]] std::uint32_t FindSection(std::string_view name) const;
  /// The section's lines; they stay until those of another section are asked for.
  [[nodiscard]] SettingsLines& LinesOf(std::uint32_t section) const;
  /// The section's lines, kept from now on instead of its text.
  SettingsLines& KeepLines(std::uint32_t section) const;

  /// Adds an empty section at the end and makes it the last one found.
  std::uint32_t AddSection(std::string_view name);
  /// Adds a line in new text to a section with these lines, and returns its position.
  std::uint32_t AddLine(std::uint32_t section, SettingsLines& lines, const SettingsLine& line);
  /// The line Key=Value in new text.
  [[nodiscard]] SettingsLine NewLine(std::string_view key, std::string_view value);
  void RememberWrite(std::uint32_t section, std::uint32_t line);

  std::string content_;
  std::string_view byteOrderMark_;
  std::string_view lineEnd_ = "\n";
  TextArena added_;  ///< text of lines that were written
  mutable std::vector<Section> sections_;
  NameIndex sectionIndex_;
  mutable std::uint32_t lastFound_ = kNone;
  mutable SettingsLines parsed_;  ///< the lines of the section searched last
  mutable std::uint32_t parsedSection_ = kNone;
  std::vector<WrittenLines> written_;  ///< what ReplayWrites is to repeat
};

}  // namespace tools
