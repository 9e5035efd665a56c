#include <cwctype>
#include <vector>

#include "tools/Text.h"
#include "tools/WindowsApi.h"
#include "tools/files/Path.h"
#include "tools/files/SystemFiles_win.h"

namespace tools {

namespace {

bool IsDriveLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

/// The end of the part that begins at `begin`.
std::size_t PartEnd(std::string_view path, std::size_t begin) {
  while (begin < path.size() && !IsPathSeparator(path[begin])) ++begin;
  return begin;
}

std::string CurrentFolder() {
  std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
  folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
  return FromWide(folder);
}

/// Makes a path absolute by text alone: a drive's own current folder is not known here, so "C:x" is
/// taken from the drive's root.
std::string Absolute(std::string_view path) {
  const std::size_t root = RootLength(path);
  if (root == 0) return JoinPath(CurrentFolder(), path);
  if (root == 1) return CurrentFolder().substr(0, 2).append(path);
  if (root == 2 && path[1] == ':') {
    return std::string(path.substr(0, 2)).append("\\").append(path.substr(2));
  }
  return std::string(path);
}

/// An absolute path with single backslashes and without "." and "..".
std::string Normalize(std::string_view path) {
  const std::string absolute = Absolute(path);
  const std::size_t root = RootLength(absolute);
  std::vector<std::string_view> parts;
  for (std::size_t begin = root; begin < absolute.size();) {
    const std::size_t end = PartEnd(absolute, begin);
    const std::string_view part = std::string_view(absolute).substr(begin, end - begin);
    if (part == "..") {
      if (!parts.empty()) parts.pop_back();
    } else if (!part.empty() && part != ".") {
      parts.push_back(part);
    }
    begin = end + 1;
  }
  std::string result = absolute.substr(0, root);
  for (char& c : result) {
    if (c == '/') c = '\\';
  }
  for (const std::string_view part : parts) {
    if (!result.ends_with('\\')) result += '\\';
    result.append(part);
  }
  return result;
}

/// The path that the system itself gives to a file or folder; empty when it cannot be opened.
std::wstring FinalPath(const std::wstring& path) {
  const HANDLE handle =
      CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return {};
  std::wstring final(32768, L'\0');
  const DWORD size =
      GetFinalPathNameByHandleW(handle, final.data(), static_cast<DWORD>(final.size()),
                                FILE_NAME_NORMALIZED | VOLUME_NAME_DOS);
  CloseHandle(handle);
  if (size == 0 || size >= final.size()) return {};
  final.resize(size);
  return final;
}

std::string WithoutPrefix(std::wstring_view path) {
  if (path.starts_with(LR"(\\?\UNC\)"))
    return FromWide(std::wstring(LR"(\\)").append(path.substr(8)));
  if (path.starts_with(LR"(\\?\)")) path.remove_prefix(4);
  return FromWide(path);
}

}  // namespace

bool IsPathSeparator(char c) { return c == '\\' || c == '/'; }

std::size_t RootLength(std::string_view path) {
  if (path.size() >= 2 && IsPathSeparator(path[0]) && IsPathSeparator(path[1])) {
    const std::size_t server = PartEnd(path, 2);
    const std::size_t share = server < path.size() ? PartEnd(path, server + 1) : server;
    return share < path.size() ? share + 1 : share;
  }
  if (path.size() >= 2 && IsDriveLetter(path[0]) && path[1] == ':') {
    return path.size() >= 3 && IsPathSeparator(path[2]) ? 3 : 2;
  }
  return !path.empty() && IsPathSeparator(path[0]) ? 1 : 0;
}

std::string CanonicalPath(std::string_view path) {
  const std::string normal = Normalize(path);
  std::string existing = normal;
  std::string rest;
  // The part that exists is asked from the system, what follows is kept as text.
  while (true) {
    const std::wstring final = FinalPath(LongPath(existing));
    if (!final.empty()) {
      const std::string canonical = Normalize(WithoutPrefix(final));
      return rest.empty() ? canonical : JoinPath(canonical, rest);
    }
    const std::string folder = FolderOf(existing);
    if (folder.size() >= existing.size()) return normal;
    const std::string name = FileNamePart(existing);
    rest = rest.empty() ? name : JoinPath(name, rest);
    existing = folder;
  }
}

bool IsSameOrBelow(std::string_view inner, std::string_view outer) {
  const std::string innerFolded = FoldCase(inner);
  const std::string outerFolded = FoldCase(outer);
  if (!innerFolded.starts_with(outerFolded)) return false;
  return innerFolded.size() == outerFolded.size() || outerFolded.ends_with('\\') ||
         innerFolded[outerFolded.size()] == '\\';
}

std::filesystem::path ToPath(std::string_view utf8) { return std::filesystem::path(ToWide(utf8)); }

std::string FromPath(const std::filesystem::path& path) { return FromWide(path.wstring()); }

std::wstring LongPath(std::string_view utf8) {
  if (utf8.starts_with(R"(\\?\)") || utf8.starts_with(R"(\\.\)")) return ToWide(utf8);
  const std::string normal = Normalize(utf8);
  if (normal.starts_with(R"(\\)"))
    return std::wstring(LR"(\\?\UNC\)").append(ToWide(normal.substr(2)));
  return std::wstring(LR"(\\?\)").append(ToWide(normal));
}

}  // namespace tools
