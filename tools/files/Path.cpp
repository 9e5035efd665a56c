#include "tools/files/Path.h"

#include <algorithm>

namespace tools {

namespace {

std::size_t NameBegin(std::string_view path) {
  std::size_t begin = path.size();
  while (begin > 0 && !IsPathSeparator(path[begin - 1])) --begin;
  return begin;
}

}  // namespace

std::string FolderOf(std::string_view path) {
  std::size_t end = NameBegin(path);
  const std::size_t root = RootLength(path);
  while (end > root && IsPathSeparator(path[end - 1])) --end;
  return std::string(path.substr(0, end));
}

std::string FileNamePart(std::string_view path) {
  return std::string(path.substr(NameBegin(path)));
}

std::string Extension(std::string_view path) {
  const std::string_view name = path.substr(NameBegin(path));
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string() : std::string(name.substr(dot + 1));
}

std::string EnsureTrailingSeparator(std::string_view path) {
  std::string result(path);
  if (result.empty() || !IsPathSeparator(result.back())) result += kPathSeparator;
  return result;
}

std::string JoinPath(std::string_view folder, std::string_view name) {
  return EnsureTrailingSeparator(folder).append(name);
}

bool IsAbsolutePath(std::string_view path) { return RootLength(path) > 0; }

std::string ResolvePath(std::string_view text, std::string_view baseFolder) {
  if (IsAbsolutePath(text)) return std::string(text);
  std::string relative(text);
  std::replace_if(
      relative.begin(), relative.end(), [](char c) { return c == '\\' || c == '/'; },
      kPathSeparator);
  return JoinPath(baseFolder, relative);
}

}  // namespace tools
