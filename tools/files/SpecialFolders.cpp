#include "tools/files/SpecialFolders.h"

#include "tools/Error.h"
#include "tools/files/Files.h"
#include "tools/files/Path.h"
#include "tools/files/PrivateFolder.h"

namespace tools {

PrivateTemporaryFolder::PrivateTemporaryFolder() {
  const std::string base = SpecialFolder(kTemporaryFolder);
  RemoveLeftovers(base);
  held_ = std::make_unique<HeldTemporary>(JoinPath(base, "x"), &MakePrivateFolder);
}

PrivateTemporaryFolder::~PrivateTemporaryFolder() {
  const std::string path = Path();
  held_.reset();
  try {
    RemoveFolderTree(path);
  } catch (const Error&) {
    // A destructor has nobody to tell; what stays lies in the system's temporary folder.
  }
}

}  // namespace tools
