#include "tools/Text.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>

namespace tools {

namespace {

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

/// Reads the character at the beginning of `text`. Returns its length in bytes, or 0 when it is not
/// UTF-8.
std::size_t ReadCharacter(std::string_view text, utf8proc_int32_t& character) {
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  const utf8proc_ssize_t length =
      utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &character);
  return length < 0 ? 0 : static_cast<std::size_t>(length);
}

void AppendCharacter(std::string& text, utf8proc_int32_t character) {
  std::array<utf8proc_uint8_t, 4> bytes{};
  const utf8proc_ssize_t length = utf8proc_encode_char(character, bytes.data());
  text.append(bytes.begin(), bytes.begin() + length);
}

/// Simple case folding, one character for one, as file systems and registries compare names: "ß"
/// and "ss" stay different.
utf8proc_int32_t FoldCharacter(utf8proc_int32_t character) {
  std::array<utf8proc_int32_t, 8> folded{};
  int boundClass = 0;
  const utf8proc_ssize_t count = utf8proc_decompose_char(character, folded.data(), folded.size(),
                                                         UTF8PROC_CASEFOLD, &boundClass);
  return count == 1 ? folded[0] : utf8proc_tolower(character);
}

template <typename Mapping>
std::string MapCharacters(std::string_view text, Mapping mapping) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    utf8proc_int32_t character = 0;
    std::size_t length = 0;
    if (IsAscii(text[i])) {
      result += LowerAscii(text[i++]);
    } else if ((length = ReadCharacter(text.substr(i), character)) > 0) {
      AppendCharacter(result, mapping(character));
      i += length;
    } else {
      result += text[i++];
    }
  }
  return result;
}

/// Where the quotation ends that `text` begins with, blanks aside; 0 when it begins with none.
std::size_t QuotationEnd(std::string_view text, char quote) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos || text[first] != quote) return 0;
  const std::size_t closing = text.find(quote, first + 1);
  return closing == std::string_view::npos ? 0 : closing;
}

/// The bytes of the control character that `text` begins with; 0 when it begins with none.
std::size_t ControlLength(std::string_view text) {
  const auto byte = [text](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
  };
  if (byte(0) < 0x20 || byte(0) == 0x7F) return 1;
  if (byte(0) == 0xC2 && byte(1) >= 0x80 && byte(1) <= 0x9F) return 2;
  if (byte(0) == 0xE2 && byte(1) == 0x80 && (byte(2) == 0xA8 || byte(2) == 0xA9)) return 3;
  return 0;
}

}  // namespace

std::string FoldCase(std::string_view text) { return MapCharacters(text, FoldCharacter); }

std::string LowerCase(std::string_view text) { return MapCharacters(text, utf8proc_tolower); }

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  std::size_t i = 0;
  for (; i < a.size() && i < b.size() && IsAscii(a[i]) && IsAscii(b[i]); ++i) {
    if (LowerAscii(a[i]) != LowerAscii(b[i])) return false;
  }
  if (i == a.size() || i == b.size()) return a.size() == b.size();
  return FoldCase(a.substr(i)) == FoldCase(b.substr(i));
}

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with) {
  if (what.empty()) return std::string(text);
  std::string result;
  for (;;) {
    const std::size_t found = text.find(what);
    result.append(text.substr(0, found));
    if (found == std::string_view::npos) return result;
    result.append(with);
    text.remove_prefix(found + what.size());
  }
}

std::vector<std::string> SplitList(std::string_view text, char separator, char quote) {
  std::vector<std::string> items;
  if (text.empty()) return items;
  for (;;) {
    const std::size_t end = text.find(separator, QuotationEnd(text, quote));
    items.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) return items;
    text.remove_prefix(end + 1);
  }
}

bool IsValidUtf8(std::string_view text) {
  while (!text.empty()) {
    utf8proc_int32_t character = 0;
    const std::size_t length = IsAscii(text[0]) ? 1 : ReadCharacter(text, character);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

bool HasControlCharacter(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (ControlLength(text.substr(i)) > 0) return true;
  }
  return false;
}

std::string EscapeControlCharacters(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string escaped;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = ControlLength(text.substr(i));
    if (length == 0) {
      escaped += text[i++];
      continue;
    }
    const auto last = static_cast<unsigned char>(text[i + length - 1]);
    escaped.append("\\u").append(length == 3 ? "20" : "00");
    const unsigned low = length == 3 ? last - 0x80U : last;  // E2 80 A8 is U+2028
    escaped += kDigits[low >> 4U];
    escaped += kDigits[low & 0xFU];
    i += length;
  }
  return escaped;
}

}  // namespace tools
