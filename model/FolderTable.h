// Destination folders: numbers (the Windows shell's special-folder numbers, and 2001 to 2004 of the
// program's own), their macros in installation scripts, and their names on screen.
#pragma once

#include <cstdint>
#include <string>

namespace model {

/// The custom folder: an entry's target subfolder is then the whole target path.
inline constexpr std::int32_t kCustomFolder = 2004;

/// The script macro with its percent signs (38 gives "%ProgramFiles%"), empty for unknown numbers.
[[nodiscard]] std::string FolderMacro(std::int32_t folderNumber);

/// The name shown to the author, empty for unknown numbers.
[[nodiscard]] std::string FolderDisplayName(std::int32_t folderNumber);

}  // namespace model
