// What the system has to say of a temporary file or folder that may be a leftover.
#pragma once

#include <string>

namespace tools {

/// Calls `remove` when `path` belongs to this user and to no running program; returns whether it
/// did.
bool RemoveIfOwnerIsGone(const std::string& path, void (*remove)(const std::string&));

/// False while a running program holds `path` (see TemporaryHold). For callers who keep others from
/// taking hold of it meanwhile.
[[nodiscard]] bool IsOwnerGone(const std::string& path);

}  // namespace tools
