// The files of a test installation by their targets, where case does not count, as under Windows.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "setup/TargetPath.h"

namespace setup {

class InstalledTree {
 public:
  explicit InstalledTree(std::string folder) : folder_(std::move(folder)) {}

  struct Place {
    std::string key;   ///< the same for all spellings of a target
    std::string path;  ///< full path, with the spelling that came first
    bool occupied = false;
  };
  /// Where a file with this target goes; makes the folders above it. Raises tools::Error when one
  /// of them cannot be made.
  [[nodiscard]] Place PlaceOf(const TargetPath& target);

  void Occupy(const Place& place);
  void Free(const Place& place) { files_.erase(place.key); }

  /// `path` of a place, below the folder, with "/".
  [[nodiscard]] std::string Below(const std::string& path) const;

 private:
  std::string folder_;
  std::unordered_map<std::string, std::string> folders_;  ///< key to full path
  std::unordered_map<std::string, std::string> files_;    ///< key to name
};

}  // namespace setup
