// What lies in an output folder before a build, and what a build may put at its top.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "engine/BuildObserver.h"

namespace engine {

/// The names that a build with these options puts at the top of a folder tree.
[[nodiscard]] std::vector<std::string> OwnNamesInTree(const BuildOptions& options,
                                                      const std::string& title);

// The functions below ignore the hidden folders of running builds (TemporaryFiles.h), count links
// as files and never follow them.

/// Paths relative to the output folder, each folder before what lies in it.
struct OutputContent {
  std::vector<std::string> files;    ///< everything but folders, and folders that cannot be read
  std::vector<std::string> folders;  ///< the others
};

/// Everything in the folder; nothing when it does not exist. `step` is called for each of it.
/// Raises tools::Error when the folder itself cannot be read, and what `step` raises.
[[nodiscard]] OutputContent ContentOf(
    const std::string& folder, const std::function<void()>& step = [] {});

/// True when ContentOf would find a file, or would fail. Stops at the first.
[[nodiscard]] bool HoldsFiles(const std::string& folder);

/// The full path of the first thing in the folder that is no part of a setup that a build made;
/// empty when there is none. A setup is known by its log and its script; its files are those that
/// have the names a build gives, and those that the script installs. A folder that cannot be read
/// counts as something else.
[[nodiscard]] std::string FirstOtherFile(const std::string& folder);

}  // namespace engine
