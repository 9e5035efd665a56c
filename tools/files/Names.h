// Names of files and folders: made acceptable to every supported file system, or told from those
// that are not.
#pragma once

#include <string>
#include <string_view>

namespace tools {

/// `text` as a folder name: each character that Windows forbids in a name (< > : " / \ | ? * and
/// control characters) and each byte that is not UTF-8 becomes `substitute`, blanks and dots at the
/// end are cut off, a device name (CON, NUL, COM1, ...; with or without an extension) gets the
/// substitute behind its base name, and at most `maximumLength` bytes are kept, never half a
/// character (0: no more than a file system takes, 255). Nothing left gives `emptyName`.
[[nodiscard]] std::string CleanFolderName(std::string_view text, std::string_view emptyName,
                                          std::size_t maximumLength, std::string_view substitute);

/// `text` as a file name by the same rules, with "_" as substitute and as the name of nothing.
[[nodiscard]] std::string CleanFileName(std::string_view text);

/// True when `text` is a file name on every supported system: CleanFileName leaves it as it is.
[[nodiscard]] bool IsPortableFileName(std::string_view text);

/// True when `text` followed by an extension names a file in the folder itself on this machine: it
/// has 255 bytes at most, holds no separator and no control character, and is neither "." nor "..".
[[nodiscard]] bool IsSafeFileTitle(std::string_view text);

/// True when `text` as a part of a folder's name cannot lead out of the folder above it on any
/// supported system: it holds no separator, no colon and no control character.
[[nodiscard]] bool IsSafeNamePart(std::string_view text);

}  // namespace tools
