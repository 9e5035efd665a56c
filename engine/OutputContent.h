// What lies in an output folder before a build. Hidden folders that builds keep at its top while
// they run (TemporaryName.h) count for nothing anywhere here, links count like files and are never
// followed.
#pragma once

#include <string>
#include <vector>

namespace engine {

/// Paths relative to the output folder, each folder before what lies in it.
struct OutputContent {
  std::vector<std::string> files;    ///< everything but folders, and folders that cannot be read
  std::vector<std::string> folders;  ///< the others
};

/// Everything in the folder; nothing when it does not exist. Raises tools::Error when the folder
/// itself cannot be read.
[[nodiscard]] OutputContent ContentOf(const std::string& folder);

/// True when ContentOf would find a file, or would fail. Stops at the first.
[[nodiscard]] bool HoldsFiles(const std::string& folder);

/// The full path of the first thing in the folder that is no part of a setup that a build made;
/// empty when there is none. A setup is known by its log and its script; its files are those that
/// have the names a build gives, and those that the script installs. A folder that cannot be read
/// counts as something else.
[[nodiscard]] std::string FirstOtherFile(const std::string& folder);

}  // namespace engine
