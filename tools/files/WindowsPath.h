// Windows only: paths as the system's functions take them.
#pragma once

#include <string>
#include <string_view>

namespace tools {

/// `utf8` as an absolute path behind the prefix "\\?\" (or "\\?\UNC\"), "." and ".." taken out: the
/// system then takes it as it is, whatever its length, and names may end in dots and blanks.
[[nodiscard]] std::wstring LongPath(std::string_view utf8);

}  // namespace tools
