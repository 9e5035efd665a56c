// The parts of a path, as text. Paths are UTF-8 and use the machine's separator: "\" on Windows
// (where "/" separates as well), "/" elsewhere.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace tools {

#ifdef _WIN32
inline constexpr char kPathSeparator = '\\';
#else
inline constexpr char kPathSeparator = '/';
#endif

/// In bytes. No system takes a longer path: Windows takes 32,767 characters, which have up to three
/// bytes each in UTF-8, others 4,096 bytes.
inline constexpr std::size_t kLongestPath = std::size_t{32767} * 3;

/// True for the characters that separate the parts of a path on this machine.
[[nodiscard]] bool IsPathSeparator(char c);

/// The number of characters of `path`'s root: "/", "C:\", "C:", "\", "\\server\share\"; 0 for a
/// relative path.
[[nodiscard]] std::size_t RootLength(std::string_view path);

/// The folder part of `path`, without a separator at its end unless it is a root; empty when
/// `path` has no folder part.
[[nodiscard]] std::string FolderOf(std::string_view path);

/// The file name with its extension: everything after the last separator.
[[nodiscard]] std::string FileNamePart(std::string_view path);

/// What follows the last "." of the file name, without the "."; empty when there is none.
[[nodiscard]] std::string Extension(std::string_view path);

/// `path` with one separator at its end; an empty path stays empty plus the separator.
[[nodiscard]] std::string EnsureTrailingSeparator(std::string_view path);

/// `folder` with a separator ensured, followed by `name`.
[[nodiscard]] std::string JoinPath(std::string_view folder, std::string_view name);

/// True when `path` names the same place whatever the current folder is.
[[nodiscard]] bool IsAbsolutePath(std::string_view path);

/// `text` as an absolute path: unchanged when it is one, else taken from `baseFolder`. In a
/// relative text both "\" and "/" separate on every machine, so that a product can move between
/// machines.
[[nodiscard]] std::string ResolvePath(std::string_view text, std::string_view baseFolder);

/// `path` absolute, without "." and "..", links resolved as far as the path exists, and without a
/// separator at its end (unless it is a root). Never raises an error.
[[nodiscard]] std::string CanonicalPath(std::string_view path);

/// True when canonical path `inner` is `outer` or lies below it; case counts only where the
/// machine's file names tell case apart.
[[nodiscard]] bool IsSameOrBelow(std::string_view inner, std::string_view outer);

/// Conversions between this program's UTF-8 text and the library's path type.
[[nodiscard]] std::filesystem::path ToPath(std::string_view utf8);
[[nodiscard]] std::string FromPath(const std::filesystem::path& path);

}  // namespace tools
