// Names for files and folders that exist only until they are whole, or until they are removed.
#pragma once

#include <string>
#include <string_view>

namespace tools {

/// A new random name in the folder of `target`, hidden where a leading dot hides files. It is
/// short, so that it fits wherever the target's own name does.
[[nodiscard]] std::string TemporaryNameBeside(std::string_view target);

/// True when the file name of `path` is one that TemporaryNameBeside makes.
[[nodiscard]] bool IsTemporaryName(std::string_view path);

}  // namespace tools
