// Operations on UTF-8 text that every layer needs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tools {

/// An ASCII letter in lower case; any other byte as it is.
[[nodiscard]] inline char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

/// `text` with Unicode's simple case folding applied, for comparisons that ignore case: Ü and ü
/// become one, ß and ss stay two, as in file names. Bytes that are not UTF-8 are kept as they are.
[[nodiscard]] std::string FoldCase(std::string_view text);

[[nodiscard]] bool EqualIgnoringCase(std::string_view a, std::string_view b);

/// `text` with Unicode letters turned to lower case; bytes that are not UTF-8 are kept.
[[nodiscard]] std::string LowerCase(std::string_view text);

/// Compares ignoring the case of ASCII letters alone.
[[nodiscard]] inline bool EqualIgnoringAsciiCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i] != b[i] && LowerAscii(a[i]) != LowerAscii(b[i])) return false;
  }
  return true;
}

/// Spaces and tabs are blanks.
[[nodiscard]] inline bool IsBlank(char c) { return c == ' ' || c == '\t'; }

/// `text` without the blanks around it; a view into `text`.
[[nodiscard]] inline std::string_view TrimBlanks(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

/// `text` with every occurrence of `what` (compared exactly) replaced by `with`. An empty `what`
/// occurs nowhere.
[[nodiscard]] std::string ReplaceAll(std::string_view text, std::string_view what,
                                     std::string_view with);

/// The items between the separators. A separator in a quotation does not split. A quotation opens
/// at an item's first character, blanks aside; its quote characters stay in the item, and one that
/// is never closed protects nothing. Empty text has no items; a trailing separator is followed by
/// an empty item.
[[nodiscard]] std::vector<std::string> SplitList(std::string_view text, char separator, char quote);

[[nodiscard]] bool IsValidUtf8(std::string_view text);

/// True when `text` holds a control character or a line separator (U+0000 to U+001F, U+007F to
/// U+009F, U+2028, U+2029): it would break a line, or command a terminal.
[[nodiscard]] bool HasControlCharacter(std::string_view text);

/// `text` with these written as "\u001B"; fit for a line of a log or a terminal.
[[nodiscard]] std::string EscapeControlCharacters(std::string_view text);

}  // namespace tools
