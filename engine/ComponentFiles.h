// The files of one version: whether its own is of use, and which component files there are.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/ModProject.h"
#include "tools/files/FindFiles.h"

namespace engine {

/// Raises tools::Error naming the file of the version when it is missing, is a folder, cannot be
/// read or holds no settings (zero bytes, for example, or nothing but NULs after a loss of power).
void RequireVersionFile(const model::ModProject& project, std::int32_t version);

/// A file whose name is that of a component file but for the case of its letters.
struct MisnamedFile {
  std::int32_t slot = 0;
  std::string path;
};

struct ComponentFiles {
  /// The slots, ascending, whose component file (or something in its place) is there.
  std::vector<std::int32_t> slots;
  /// Files that this machine does not take for the component files that they may be, by slot.
  std::vector<MisnamedFile> misnamed;
};

/// The component files in a version's folder, beyond the version's count too. Raises tools::Error
/// when the folder cannot be searched, and what `step` raises.
[[nodiscard]] ComponentFiles ListComponentFiles(const model::ModProject& project,
                                                std::int32_t version,
                                                const tools::ListingStep& step = {});

}  // namespace engine
