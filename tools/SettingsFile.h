// One settings file in memory: sections of Key=Value lines, parsed once, edited and rendered again.
//
// The text is UTF-8, lines end in LF (CR LF and a byte-order mark are accepted and kept). A line
// that begins with ";" is a comment. The value is everything after the first "=" without the blanks
// around it; one pair of outer double quotes, if both are there, is taken off and protects blanks
// or quotes at a value's ends. Sections and keys are found ignoring ASCII case, and the first of
// two equal ones counts. Comments, unknown lines, the order of lines and bytes that are not UTF-8
// survive an edit.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tools {

class SettingsFile {
 public:
  /// An empty file.
  SettingsFile();
  /// The file with this content. Any bytes are accepted.
  explicit SettingsFile(std::string content);
  ~SettingsFile();
  SettingsFile(const SettingsFile&) = delete;
  SettingsFile& operator=(const SettingsFile&) = delete;

  /// The value of a key, or nothing. The view lives as long as this object and its next Write.
  [[nodiscard]] std::optional<std::string_view> Find(std::string_view section,
                                                     std::string_view key) const;

  /// The value of a key, or the default.
  [[nodiscard]] std::string Read(std::string_view section, std::string_view key,
                                 std::string_view defaultValue) const;

  /// Sets a value, adding section and key where they are missing. Returns false when it stood there
  /// already. Raises Error for a line break in the value, and for a name that a line cannot hold
  /// (an empty one, one with line breaks or blanks around it, a key with "=" or a leading ";" or
  /// "[").
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
  void ForgetWrites();

 private:
  class Document;
  std::unique_ptr<Document> document_;
};

}  // namespace tools
