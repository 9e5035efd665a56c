// POSIX only: removing what lies in an open folder.
#pragma once

#include <string>

namespace tools {

/// Removes `name` in the open folder `parent` with all that it holds; `path` is what an error calls
/// it. Folders are opened by way of their parent and never through a link, so that nobody can lead
/// the removal elsewhere meanwhile. Raises Error.
void RemoveEntry(int parent, const std::string& name, const std::string& path);

}  // namespace tools
