// The single steps of the system that the operations on folders are made of.
#pragma once

#include <string>
#include <system_error>

namespace tools {

/// Creates one folder, whose parent must be there. Returns the system's reason when it cannot.
[[nodiscard]] std::error_code CreateOneFolder(const std::string& path);

/// Removes an empty folder. Returns the system's reason when it cannot.
std::error_code RemoveEmptyFolder(const std::string& path) noexcept;

}  // namespace tools
