// Operations on UTF-8 text that every layer needs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tools {

/// `text` with Unicode's simple case folding applied, for comparisons that ignore case: Ü and ü
/// become one, ß and ss stay two, as in file names. Bytes that are not UTF-8 are kept as they are.
[[nodiscard]] std::string FoldCase(std::string_view text);

[[nodiscard]] bool EqualIgnoringCase(std::string_view a, std::string_view b);

/// `text` with Unicode letters turned to lower case; bytes that are not UTF-8 are kept.
[[nodiscard]] std::string LowerCase(std::string_view text);

/// `text` without the blanks (spaces and tabs) around it; a view into `text`.
[[nodiscard]] std::string_view TrimBlanks(std::string_view text);

/// `text` with every occurrence of `what` (not empty, compared exactly) replaced by `with`.
[[nodiscard]] std::string ReplaceAll(std::string_view text, std::string_view what,
                                     std::string_view with);

/// The items between the separators. A separator in a quotation does not split. A quotation opens
/// at an item's first character, blanks aside; its quote characters stay in the item, and one that
/// is never closed protects nothing. Empty text has no items; a trailing separator is followed by
/// an empty item.
[[nodiscard]] std::vector<std::string> SplitList(std::string_view text, char separator, char quote);

[[nodiscard]] bool IsValidUtf8(std::string_view text);

}  // namespace tools
