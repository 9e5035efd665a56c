// The folder a build writes to. A build may delete what lies in it, so folders whose loss would
// hurt are refused.
#pragma once

#include <string>
#include <string_view>

#include "engine/OutputContent.h"
#include "engine/ProtectedPlaces.h"
#include "model/ModProject.h"

namespace engine {

struct OutputFolder {
  std::string path;  ///< absolute, links resolved; empty when refused
  FolderRefusal refusal = FolderRefusal::None;
  std::string reason;  ///< the refusal as a German sentence; empty when accepted

  [[nodiscard]] bool IsAccepted() const { return refusal == FolderRefusal::None; }
};

/// `text` as an absolute path with links resolved, whatever lies there: a relative one is taken
/// from the product's folder, and "\" separates on every machine. Empty for blank text.
[[nodiscard]] std::string OutputFolderPath(std::string_view text, const model::ModProject& project);

/// The output folder that `text` names, or why it is refused for its place. Raises tools::Error
/// when the product cannot be read.
[[nodiscard]] OutputFolder AcceptOutputFolder(std::string_view text,
                                              const model::ModProject& project,
                                              const ProtectedPlaces& places);

/// The same for what an accepted folder holds, at its top and in all folders below. Call
/// SetupStage::Recover before. Raises tools::Error when it cannot be read.
[[nodiscard]] OutputFolder AcceptContent(const OutputFolder& folder, const OutputContent& content,
                                         const ProtectedPlaces& places);

/// The part of AcceptContent that needs no look below the folder: for hints while a path is typed.
[[nodiscard]] OutputFolder AcceptTop(const OutputFolder& folder, bool holdsFiles,
                                     const ProtectedPlaces& places);

}  // namespace engine
