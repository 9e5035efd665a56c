// The user's and the system's folders.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tools {

/// The shell's special-folder numbers (CSIDL) that this program asks for, and its own.
inline constexpr std::int32_t kDocumentsFolder = 5;
inline constexpr std::int32_t kUserDataFolder = 26;  ///< per-user application data (configuration)
inline constexpr std::int32_t kProfileFolder = 40;   ///< the home folder
inline constexpr std::int32_t kTemporaryFolder = 1003;  ///< the system's temporary folder

/// The folder's path without a separator at its end; empty for a number that this system does not
/// know. Windows answers with the shell's folders, other systems with the XDG base and user
/// directories (freedesktop.org).
[[nodiscard]] std::string SpecialFolder(std::int32_t number);

/// The home folders of all users that this machine knows, whether they exist or not, this one's
/// among them.
[[nodiscard]] std::vector<std::string> HomeFolders();

}  // namespace tools
