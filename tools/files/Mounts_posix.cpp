#include <fcntl.h>
#include <sys/stat.h>

#include "tools/files/Mounts.h"
#include "tools/files/Path.h"

namespace tools {

bool IsMountRoot(const std::string& folder) {
  struct statx status {};
  if (::statx(AT_FDCWD, folder.c_str(), 0, STATX_TYPE, &status) != 0) return false;
  if ((status.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0) {
    return (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
  }
  // Kernels before 5.8 do not know that attribute.
  struct stat own {};
  struct stat above {};
  return ::stat(folder.c_str(), &own) == 0 && ::stat((folder + "/..").c_str(), &above) == 0 &&
         (own.st_dev != above.st_dev || own.st_ino == above.st_ino);
}

}  // namespace tools
