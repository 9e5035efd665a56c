#include "tools/files/Names.h"

#include <algorithm>
#include <array>

#include "tools/Text.h"
#include "tools/files/Path.h"

namespace tools {

namespace {

constexpr std::size_t kLongestName = 255;  // bytes, as most file systems have it

bool IsForbidden(char c) {
  return static_cast<unsigned char>(c) < 0x20 ||
         std::string_view(R"(<>:"/\|?*)").find(c) != std::string_view::npos;
}

/// The length of the UTF-8 character at the beginning of `text`; 0 when there is none.
std::size_t CharacterLength(std::string_view text) {
  for (std::size_t length = 1; length <= std::min<std::size_t>(4, text.size()); ++length) {
    if (IsValidUtf8(text.substr(0, length))) return length;
  }
  return 0;
}

std::string ReplaceForbidden(std::string_view text, std::string_view substitute) {
  std::string result;
  while (!text.empty()) {
    const std::size_t length = CharacterLength(text);
    if (length == 0 || IsForbidden(text[0])) {
      result.append(substitute);
      text.remove_prefix(1);
    } else {
      result.append(text.substr(0, length));
      text.remove_prefix(length);
    }
  }
  return result;
}

/// Cuts `name` to at most `maximum` bytes, never inside a character, and the blanks and dots off
/// its end.
void Shorten(std::string& name, std::size_t maximum) {
  if (name.size() > maximum) {
    while (maximum > 0 && (static_cast<unsigned char>(name[maximum]) & 0xC0) == 0x80) --maximum;
    name.resize(maximum);
  }
  name.erase(name.find_last_not_of(". \t") + 1);
}

/// The part of a name that Windows compares with its device names: what stands before the first
/// dot, without blanks at its end.
std::string_view BaseName(std::string_view name) {
  const std::string_view base = name.substr(0, name.find('.'));
  return base.substr(0, base.find_last_not_of(' ') + 1);
}

bool IsDeviceName(std::string_view name) {
  constexpr std::array<std::string_view, 6> kDevices{"con", "prn",    "aux",
                                                     "nul", "conin$", "conout$"};
  const std::string base = LowerCase(BaseName(name));
  if (std::find(kDevices.begin(), kDevices.end(), base) != kDevices.end()) return true;
  if (!base.starts_with("com") && !base.starts_with("lpt")) return false;
  const std::string number = base.substr(3);
  if (number.size() == 1) return number[0] >= '1' && number[0] <= '9';
  return number == "¹" || number == "²" || number == "³";
}

// Control characters count as among those.
bool HoldsNone(std::string_view text, std::string_view characters) {
  return std::none_of(text.begin(), text.end(), [characters](char c) {
    return (c >= 0 && c < ' ') || c == '\x7F' || characters.find(c) != std::string_view::npos;
  });
}

}  // namespace

std::string CleanFolderName(std::string_view text, std::string_view emptyName,
                            std::size_t maximumLength, std::string_view substitute) {
  const std::size_t maximum =
      maximumLength == 0 ? kLongestName : std::min(maximumLength, kLongestName);
  std::string name = ReplaceForbidden(text, substitute);
  Shorten(name, maximum);
  if (IsDeviceName(name)) {
    name.insert(BaseName(name).size(), substitute.empty() ? "_" : substitute);
    Shorten(name, maximum);
    // No room behind the base name, or a substitute that was cut off again: change its last
    // character.
    if (IsDeviceName(name)) name[2] = '_';
  }
  return name.empty() ? std::string(emptyName) : name;
}

std::string CleanFileName(std::string_view text) { return CleanFolderName(text, "_", 0, "_"); }

bool IsPortableFileName(std::string_view text) { return CleanFileName(text) == text; }

bool IsSafeFileTitle(std::string_view text) {
  // A colon leads elsewhere only on Windows: to another stream of the file.
  return text.size() <= kLongestName && text != "." && text != ".." &&
         HoldsNone(text, kPathSeparator == '\\' ? "/\\:" : "/\\");
}

bool IsSafeNamePart(std::string_view text) { return HoldsNone(text, "/\\:"); }

}  // namespace tools
