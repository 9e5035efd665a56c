#include "tools/files/Path.h"

namespace tools {

bool IsPathSeparator(char c) { return c == '/'; }

std::size_t RootLength(std::string_view path) {
  const std::size_t root = path.find_first_not_of('/');
  return root == std::string_view::npos ? path.size() : root;
}

std::string CanonicalPath(std::string_view path) {
  std::error_code failure;
  std::filesystem::path result =
      std::filesystem::weakly_canonical(std::filesystem::absolute(ToPath(path), failure), failure);
  if (failure) {
    result = std::filesystem::absolute(ToPath(path), failure).lexically_normal();
    if (failure) return std::string(path);
  }
  std::string text = result.string();
  while (text.size() > 1 && text.back() == '/') text.pop_back();
  return text;
}

bool IsSameOrBelow(std::string_view inner, std::string_view outer) {
  if (!inner.starts_with(outer)) return false;
  return inner.size() == outer.size() || outer.ends_with('/') || inner[outer.size()] == '/';
}

std::filesystem::path ToPath(std::string_view utf8) { return std::filesystem::path(utf8); }

std::string FromPath(const std::filesystem::path& path) { return path.string(); }

}  // namespace tools
