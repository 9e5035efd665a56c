#include "tools/SpecialFolders.h"

#include "tools/Error.h"
#include "tools/Files.h"

namespace tools {

PrivateTemporaryFolder::~PrivateTemporaryFolder() {
  try {
    RemoveFolderTree(path_);
  } catch (const Error&) {
    // A destructor has nobody to tell; what stays lies in the system's temporary folder.
  }
}

}  // namespace tools
