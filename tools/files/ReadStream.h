// Reading streams on paths of this program.
#pragma once

#include <fstream>
#include <string_view>

namespace tools {

/// A binary stream on a file, whatever characters and length its UTF-8 path has; its state tells
/// whether the file could be opened.
[[nodiscard]] std::ifstream OpenForReading(std::string_view path);

}  // namespace tools
