// Keeping other running programs out of a folder: for the moment of a save, or for as long as a
// build replaces what lies in it.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace tools {

/// Keeps two running programs from replacing a file of one folder at the same moment. Held from
/// construction to destruction. Waits as long as other holders go on writing to the
/// folder (a minute at most), and five seconds where nothing in it changes. Raises Error naming the
/// folder then, and when it cannot be locked. On network file systems the lock mostly holds between
/// the programs of one machine.
class FolderLock {
 public:
  explicit FolderLock(const std::string& folder,
                      std::chrono::milliseconds longestStandstill = std::chrono::seconds(5));
  ~FolderLock();
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

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

  /// True when something of this name lies in the folder that was claimed, whatever has become of
  /// its path meanwhile.
  [[nodiscard]] bool Holds(const std::string& name) const;

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
