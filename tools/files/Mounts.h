// Where file systems begin.
#pragma once

#include <string>
#include <vector>

namespace tools {

/// True when the folder is the root of a file system, or a place where one (or a folder, by a bind
/// mount) is mounted. False when the system cannot tell.
[[nodiscard]] bool IsMountRoot(const std::string& folder);

/// What is mounted where, as it was when this object was made. A folder can be mounted in several
/// places (by bind mounts), and is then seen under several paths. Knows nothing on Windows.
class MountTable {
 public:
  MountTable();

  /// The other paths under which a canonical path is seen.
  [[nodiscard]] std::vector<std::string> OtherPathsOf(const std::string& path) const;

 private:
  struct Mount {
    std::string volume;
    std::string root;   ///< the folder of the volume that is mounted, and
    std::string place;  ///< where it is
  };

  std::vector<Mount> mounts_;
};

}  // namespace tools
