// The pass of a build that stores every file of the version.
#pragma once

#include <string>

#include "engine/BuildLog.h"
#include "engine/FileStore.h"
#include "engine/StoredNameMap.h"
#include "engine/Survey.h"

namespace engine {

struct StoreFailures {
  bool diskFull = false;  ///< some failure came from a full disk
  /// The first source that the system kept from being looked at or read (not one that is merely
  /// missing), with the reason; empty when there is none. German.
  std::string unread;
};

/// Stores the files of every surveyed entry in order and records their names. What the survey found
/// wrong is logged when its entry's turn comes, and so are copies that fail.
[[nodiscard]] StoreFailures StoreFiles(const Survey& survey, FileStore& store, StoredNameMap& names,
                                       BuildLog& log);

}  // namespace engine
