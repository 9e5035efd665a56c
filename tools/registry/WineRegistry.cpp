#include "tools/registry/WineRegistry.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstdint>

#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/files/InputFile.h"
#include "tools/files/Path.h"
#include "tools/registry/Registry.h"

namespace tools {

namespace {

constexpr char kOrderSeparator = '\0';

/// Reads the digits of a number, at most `maximum` of them, and moves `at` behind them.
std::uint32_t ReadDigits(std::string_view text, std::size_t& at, std::uint32_t base,
                         std::size_t maximum) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::uint32_t value = 0;
  for (; maximum > 0 && at < text.size(); --maximum, ++at) {
    const char lower =
        text[at] >= 'A' && text[at] <= 'F' ? static_cast<char>(text[at] + 32) : text[at];
    const std::size_t digit = kDigits.find(lower);
    if (digit >= base) break;
    value = value * base + static_cast<std::uint32_t>(digit);
  }
  return value;
}

void AppendUtf8(std::string& text, std::uint32_t character) {
  std::array<utf8proc_uint8_t, 4> bytes{};
  const auto length = utf8proc_encode_char(static_cast<utf8proc_int32_t>(character), bytes.data());
  text.append(bytes.begin(), bytes.begin() + length);
}

/// Reads a UTF-16 unit's digits, and those of its second half when one follows.
std::uint32_t ReadUtf16(std::string_view text, std::size_t& at) {
  constexpr std::uint32_t kReplacementCharacter = 0xFFFD;
  const std::uint32_t unit = ReadDigits(text, at, 16, 4);
  if (unit < 0xD800 || unit > 0xDFFF) return unit;
  if (unit > 0xDBFF || text.substr(at, 2) != "\\x") return kReplacementCharacter;
  std::size_t next = at + 2;
  const std::uint32_t second = ReadDigits(text, next, 16, 4);
  if (second < 0xDC00 || second > 0xDFFF) return kReplacementCharacter;
  at = next;
  return 0x10000 + ((unit - 0xD800) << 10) + (second - 0xDC00);
}

/// Appends what an escape stands for; `at` is behind its backslash and moves behind the escape.
void ReadEscape(std::string_view text, std::size_t& at, std::string& result) {
  constexpr std::string_view kLetters = "abtnvfre";
  constexpr std::string_view kMeanings = "\a\b\t\n\v\f\r\x1B";
  const char c = text[at];
  if (c == 'x') {
    ++at;
    AppendUtf8(result, ReadUtf16(text, at));
  } else if (c >= '0' && c <= '7') {
    AppendUtf8(result, ReadDigits(text, at, 8, 3));
  } else {
    const std::size_t letter = kLetters.find(c);
    result += letter == std::string_view::npos ? c : kMeanings[letter];
    ++at;
  }
}

/// The text between a line's first character and the next `end` that is not escaped. Returns false
/// when the line has no such end.
bool ReadName(std::string_view line, char end, std::string& name) {
  name.clear();
  for (std::size_t at = 1; at < line.size();) {
    if (line[at] == end) return true;
    if (line[at] == '\\' && at + 1 < line.size()) {
      ReadEscape(line, ++at, name);
    } else {
      name += line[at++];
    }
  }
  return false;
}

/// Takes a line, with those that continue it, off the text at `at`.
std::string_view TakeLine(std::string_view text, std::size_t& at) {
  const std::size_t begin = at;
  for (;;) {
    const std::size_t found = text.find('\n', at);
    std::size_t end = std::min(found, text.size());
    at = std::min(end + 1, text.size());
    if (end > begin && text[end - 1] == '\r') --end;
    const bool continued = end > begin && text[end - 1] == '\\';
    if (!continued || at == text.size()) return text.substr(begin, end - begin);
  }
}

std::string OrderOf(std::string_view keyPath) {
  std::string order = FoldCase(TrimKeyPath(keyPath));
  std::replace(order.begin(), order.end(), '\\', kOrderSeparator);
  return order;
}

/// The name that stands behind `depth` separators of a path. (Folding may change a name's length,
/// so places in a folded path say nothing about the path itself.)
std::string NameAtDepth(std::string_view path, std::ptrdiff_t depth) {
  for (; depth > 0; --depth) path.remove_prefix(path.find('\\') + 1);
  return std::string(path.substr(0, path.find('\\')));
}

}  // namespace

WineRegistryFile::WineRegistryFile(std::string content) : content_(std::move(content)) {
  if (!content_.starts_with("WINE REGISTRY Version 2")) return;
  for (std::size_t at = 0; at < content_.size();) {
    const std::string_view line = TakeLine(content_, at);
    if (line.starts_with('[')) AddKey(line, at);
  }
  // Of two keys with one name the first counts.
  std::stable_sort(keys_.begin(), keys_.end(),
                   [](const Key& a, const Key& b) { return a.order < b.order; });
}

void WineRegistryFile::AddKey(std::string_view line, std::size_t values) {
  std::string path;
  if (!ReadName(line, ']', path)) return;
  if (path.find(kOrderSeparator) != std::string::npos) return;
  path = TrimKeyPath(path);
  keys_.push_back({OrderOf(path), path, values});
}

std::vector<WineRegistryFile::Key>::const_iterator WineRegistryFile::LowerBound(
    std::string_view order) const {
  return std::lower_bound(
      keys_.begin(), keys_.end(), order,
      [](const Key& key, std::string_view wanted) { return key.order < wanted; });
}

std::vector<std::string> WineRegistryFile::SubkeyNames(std::string_view keyPath) const {
  std::string prefix = OrderOf(keyPath);
  if (!prefix.empty()) prefix += kOrderSeparator;
  const auto depth = std::count(prefix.begin(), prefix.end(), kOrderSeparator);
  std::vector<std::string> names;
  auto key = LowerBound(prefix);
  while (key != keys_.end() && key->order.starts_with(prefix)) {
    std::string name = NameAtDepth(key->path, depth);
    if (!name.empty()) names.push_back(std::move(name));
    // On to the first key that is neither this subkey nor below it.
    std::string next = key->order.substr(0, key->order.find(kOrderSeparator, prefix.size()));
    next += static_cast<char>(kOrderSeparator + 1);
    key = LowerBound(next);
  }
  return names;
}

std::vector<std::string> WineRegistryFile::ValueNames(std::string_view keyPath) const {
  std::vector<std::string> names;
  const std::string order = OrderOf(keyPath);
  const auto key = LowerBound(order);
  if (key == keys_.end() || key->order != order) return names;
  std::string name;
  for (std::size_t at = key->values; at < content_.size();) {
    const std::string_view line = TakeLine(content_, at);
    if (line.starts_with('[')) break;
    if (line.starts_with('"') && ReadName(line, '"', name)) names.push_back(name);
  }
  return names;
}

namespace {

constexpr const char* kDefaultUserFile = "userdef.reg";
constexpr std::string_view kDefaultUserKey = ".Default";

}  // namespace

WineRegistry::WineRegistry(const std::string& prefixFolder) : folder_(prefixFolder) {}

WineRegistry::Place WineRegistry::Locate(RegistryRoot root, std::string_view keyPath) {
  keyPath = TrimKeyPath(keyPath);
  switch (root) {
    case RegistryRoot::LocalMachine:
      return {"system.reg", std::string(keyPath)};
    case RegistryRoot::ClassesRoot:
      return {"system.reg", std::string("Software\\Classes\\").append(keyPath)};
    case RegistryRoot::CurrentUser:
      return {"user.reg", std::string(keyPath)};
    case RegistryRoot::Users: {
      const std::string_view user = keyPath.substr(0, keyPath.find('\\'));
      if (!EqualIgnoringCase(user, kDefaultUserKey)) return {};
      return {kDefaultUserFile, std::string(keyPath.substr(user.size()))};
    }
    default:
      return {};
  }
}

const WineRegistryFile& WineRegistry::Fetch(const std::string& fileName) {
  CachedFile& file = files_[fileName];
  const std::string path = JoinPath(folder_, fileName);
  try {
    const FileStamp stamp = StampOf(path);
    if (stamp == file.stamp) return file.keys;
    file.keys = WineRegistryFile(stamp.exists ? ReadWholeFile(path) : std::string());
    file.stamp = stamp;
  } catch (const Error&) {
    // Browsing offers what is there; a file that cannot be read offers nothing, until it can.
    file = {};
  }
  return file.keys;
}

std::vector<std::string> WineRegistry::SubkeyNames(RegistryRoot root, std::string_view keyPath) {
  if (root == RegistryRoot::Users && TrimKeyPath(keyPath).empty()) {
    std::error_code ignored;
    if (KindOf(JoinPath(folder_, kDefaultUserFile), ignored) != PathKind::File) return {};
    return {std::string(kDefaultUserKey)};
  }
  const Place place = Locate(root, keyPath);
  if (place.fileName.empty()) return {};
  return Fetch(place.fileName).SubkeyNames(place.keyPath);
}

std::vector<std::string> WineRegistry::ValueNames(RegistryRoot root, std::string_view keyPath) {
  const Place place = Locate(root, keyPath);
  if (place.fileName.empty()) return {};
  return Fetch(place.fileName).ValueNames(place.keyPath);
}

}  // namespace tools
