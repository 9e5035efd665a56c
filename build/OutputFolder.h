// The folder a build writes to. A build may delete what lies in it, so folders whose loss would
// hurt are refused.
#pragma once

#include <set>
#include <string>
#include <string_view>

#include "build/Survey.h"
#include "model/ModProject.h"

namespace build {

/// `text` as an absolute path with links resolved; a relative one is taken from the product's
/// folder, and "\" separates on every machine. Empty (refused) for blank text, the root of a file
/// system, drive or network share, the home folder, and a folder that holds the home folder, the
/// product file, a version of the product or a source in `locations`.
[[nodiscard]] std::string NormalizeOutputFolder(std::string_view text,
                                                const model::ModProject& project,
                                                const std::set<SourceLocation>& locations);

}  // namespace build
