// Where a path really leads: links on its way, and file systems that are mounted there.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tools {

/// The file that a link at `path` leads to; `path` itself where there is no link. Replacing that
/// file keeps the link.
[[nodiscard]] std::string LinkTarget(std::string_view path);

/// Every place that a path depends on: each link on the way, in its own place, and at the end what
/// the path leads to, all with the folders above them resolved. Never raises an error: what cannot
/// be looked at counts as no link.
[[nodiscard]] std::vector<std::string> PlacesOnTheWay(std::string_view path);

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
