// Which component files a version has.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/ModProject.h"
#include "tools/files/FindFiles.h"

namespace engine {

/// A file whose name is that of a component file but for the case of its letters.
struct MisnamedFile {
  model::ComponentSlot slot = 0;
  std::string path;
};

struct ComponentFiles {
  /// The slots, ascending, that have a component file, or something in its place.
  std::vector<model::ComponentSlot> slots;
  /// Ordered by slot. Where names differ by case, these files are not read as component files.
  std::vector<MisnamedFile> misnamed;
};

/// The component files in a version's folder, beyond the version's count too. Raises tools::Error
/// when the folder cannot be searched, and what `step` raises.
[[nodiscard]] ComponentFiles ListComponentFiles(const model::ModProject& project,
                                                model::VersionSlot version,
                                                const tools::ListingStep& step = {});

}  // namespace engine
