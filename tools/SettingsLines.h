// The lines of one section of a settings file, found by their keys. Private to SettingsFile.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "tools/NameIndex.h"

namespace tools {

/// Spaces and tabs.
[[nodiscard]] inline bool IsSettingsBlank(char c) { return c == ' ' || c == '\t'; }

/// One line with its line end, a view into text that somebody else keeps.
struct SettingsLine {
  const char* text = nullptr;
  std::uint32_t size = 0;
  std::uint32_t keyBegin = 0;
  std::uint32_t keySize = 0;     ///< 0 where it is no Key=Value line
  std::uint32_t valueBegin = 0;  ///< behind the "="
  std::uint32_t keyTag = 0;      ///< TagOf the key, to be compared before the keys are

  /// The line that `text` is, which ends with a line end.
  [[nodiscard]] static SettingsLine Parse(std::string_view text);
  /// Equal keys have equal tags.
  [[nodiscard]] static std::uint32_t TagOf(std::string_view key);

  [[nodiscard]] std::string_view Text() const { return {text, size}; }
  [[nodiscard]] std::string_view Key() const { return {text + keyBegin, keySize}; }
  /// The value without the blanks and the pair of double quotes around it.
  [[nodiscard]] std::string_view Value() const;
  /// True for a line of nothing but blanks.
  [[nodiscard]] bool IsBlank() const { return keySize == 0 && HasOnlyBlanks(); }
  [[nodiscard]] bool HasOnlyBlanks() const;
};

inline std::uint32_t SettingsLine::TagOf(std::string_view key) {
  if (key.empty()) return 0;
  // This bit is all that tells an ASCII letter's two cases apart.
  const auto byte = [](char c) { return static_cast<unsigned char>(c) | 0x20U; };
  return static_cast<std::uint32_t>(key.size()) ^ (byte(key.front()) << 24U) ^
         (byte(key.back()) << 16U);
}

/// Lines in their order. The first of two equal keys counts; ASCII case does not.
class SettingsLines {
 public:
  /// Takes the lines of `text`, which ends with a line end, instead of those before.
  void Parse(std::string_view text);

  [[nodiscard]] std::size_t Size() const { return lines_.size(); }
  [[nodiscard]] std::size_t TextSize() const;
  [[nodiscard]] const SettingsLine& At(std::uint32_t position) const { return lines_[position]; }
  [[nodiscard]] auto begin() const { return lines_.begin(); }
  [[nodiscard]] auto end() const { return lines_.end(); }
  /// True when the last line is one of nothing but blanks.
  [[nodiscard]] bool EndBlank() const { return !lines_.empty() && lines_.back().IsBlank(); }

  /// The position of the line with that key, which is not empty.
  [[nodiscard]] std::optional<std::uint32_t> Find(std::string_view key) const;

  /// Adds a line, with a key not found yet or with none, and returns its position, which stays:
  /// only blank lines at the end move behind it.
  std::uint32_t Add(const SettingsLine& line);
  /// Puts a line with the same key in the place of one.
  void Replace(std::uint32_t position, const SettingsLine& line) { lines_[position] = line; }

 private:
  void MakeIndex() const;

  std::vector<SettingsLine> lines_;
  mutable NameIndex index_;  ///< made when many lines are first searched
};

}  // namespace tools
