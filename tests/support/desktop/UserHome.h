// A user of a test's own: the folders and the registry that programs of this test use.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tools/registry/Registry.h"

namespace tests {

/// From now on, this process keeps the user's documents and preferences in `folder`, and sees a
/// registry without keys. The folder has to stay until the next call or the end of the process.
void UseHome(const TemporaryFolder& folder);

/// The registry of a user whose folder that is.
inline std::unique_ptr<tools::Registry> RegistryBelow(const TemporaryFolder& folder,
                                                      tools::Disk& disk) {
  UseHome(folder);
  return tools::OpenSystemRegistry(disk);
}

/// Makes a key below HKEY_LOCAL_MACHINE, with values of empty text; all in ASCII. To be called
/// after UseHome and before the registry is opened.
void MakeMachineKey(const std::string& path, const std::vector<std::string>& valueNames = {});

}  // namespace tests
