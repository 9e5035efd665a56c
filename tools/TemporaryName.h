// Names for files that exist only until they are whole.
#pragma once

#include <string>
#include <string_view>

namespace tools {

/// A new random name in the folder of `target`, hidden where a leading dot hides files. It is
/// short, so that it fits wherever the target's own name does.
[[nodiscard]] std::string TemporaryNameBeside(std::string_view target);

}  // namespace tools
