// A folder that one program has to itself while it replaces what lies in it.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace tools {

/// Keeps other programs that make a claim out of a folder, from construction to destruction or the
/// end of the process, however that comes. POSIX locks the folder itself; Windows keeps a file open
/// in it, under a name for which IsTemporaryName is true. On file systems that cannot lock folders
/// (some on the network) nobody is kept out.
class FolderClaim {
 public:
  /// Creates the folder and its parents where they are missing. Never waits. Raises Error, naming
  /// the process that holds the folder where the system tells.
  explicit FolderClaim(std::string folder);
  /// Removes the folders that were created, when they are empty.
  ~FolderClaim();
  FolderClaim(const FolderClaim&) = delete;
  FolderClaim& operator=(const FolderClaim&) = delete;

  [[nodiscard]] const std::string& Path() const { return path_; }

  /// Removes what `relative` names below the folder (the machine's separators), as RemoveFolderTree
  /// does, but always in the folder that was claimed: whatever has become of its path meanwhile, no
  /// link is followed. Nothing there is fine. Raises Error.
  void Remove(const std::string& relative) const;

 private:
  struct Mark;
  /// Returns false when the folder was replaced by another one meanwhile.
  bool TryToClaim();

  std::string path_;
  std::vector<std::string> made_;  ///< by the constructor, the outermost first
  std::unique_ptr<Mark> mark_;
};

}  // namespace tools
