// The folder a build writes to. A build may delete what lies in it, so folders whose loss would
// hurt are refused.
#pragma once

#include <set>
#include <string>
#include <string_view>

#include "model/ModProject.h"

namespace engine {

/// The rule that refuses an output folder.
enum class FolderRefusal {
  None,
  Blank,      ///< no folder is named
  Root,       ///< the root of a file system, drive or network share
  Home,       ///< it is the home folder or holds it
  Product,    ///< it holds the product file or a version's folder
  Sources,    ///< sources of the version lie in it
  NotAFolder  ///< something else stands in its place, or in that of a folder above it
};

struct OutputFolder {
  std::string path;  ///< absolute, links resolved; empty when refused
  FolderRefusal refusal = FolderRefusal::None;
  std::string reason;  ///< the refusal as a German sentence; empty when accepted

  [[nodiscard]] bool IsAccepted() const { return refusal == FolderRefusal::None; }
};

/// `text` as an absolute path with links resolved, whatever lies there: a relative one is taken
/// from the product's folder, and "\" separates on every machine. Empty for blank text.
[[nodiscard]] std::string OutputFolderPath(std::string_view text, const model::ModProject& project);

/// The output folder that `text` names, or why it is refused. `sourceFolders` are full paths of
/// folders that hold sources. Raises tools::Error when the product cannot be read.
[[nodiscard]] OutputFolder AcceptOutputFolder(std::string_view text,
                                              const model::ModProject& project,
                                              const std::set<std::string>& sourceFolders);

/// True when a file (or a link to one) lies in the folder or below it, or when that cannot be told.
/// What builds keep there for themselves while they run does not count.
[[nodiscard]] bool HoldsFiles(const std::string& folder);

}  // namespace engine
