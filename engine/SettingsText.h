// A look at the text of a settings file itself, for what reading its values cannot tell.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/files/Files.h"

namespace engine {

/// What stands at the place of one of a product's files. Raises tools::Error when the system cannot
/// tell (no right to look, a defective disk).
[[nodiscard]] tools::PathKind LookAt(const std::string& path);

/// The names of the sections, in order. The views are of `text`.
[[nodiscard]] std::vector<std::string_view> SectionNames(std::string_view text);

/// The number (from 1) of the first line that marks a conflict of a version control system's merge;
/// 0 when there is none.
[[nodiscard]] std::size_t ConflictLine(std::string_view text);

}  // namespace engine
