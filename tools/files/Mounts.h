// Where file systems begin.
#pragma once

#include <string>

namespace tools {

/// True when the folder is the root of a file system, or a place where one (or a folder, by a bind
/// mount) is mounted. False when the system cannot tell.
[[nodiscard]] bool IsMountRoot(const std::string& folder);

}  // namespace tools
