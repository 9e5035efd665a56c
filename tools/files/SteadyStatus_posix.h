// POSIX only: the status of a file from which any later change of its content can be told.
#pragma once

#include <sys/stat.h>

namespace tools {

/// Fills `status` from an open file. Systems count a file's time in ticks of some milliseconds, and
/// set it when a write begins: a file that was changed just now is looked at again when it should
/// have been quiet for 20 milliseconds. Returns false when it has changed again by then, and where
/// the system fails.
[[nodiscard]] bool SteadyStatus(int descriptor, struct stat& status);

}  // namespace tools
