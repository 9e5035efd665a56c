// The pass of a build that stores every file of the version.
#pragma once

#include "engine/BuildLog.h"
#include "engine/FileStore.h"
#include "engine/InstallScript.h"
#include "engine/Survey.h"

namespace engine {

/// Stores the files of every surveyed entry in order and records their names. What the survey found
/// wrong is logged when its entry's turn comes, and so are copies that fail. Returns true when a
/// failure came from a full disk.
[[nodiscard]] bool StoreFiles(const Survey& survey, FileStore& store, StoredNameMap& names,
                              BuildLog& log);

}  // namespace engine
