// Keeps two running programs from replacing a file of one folder at the same moment.
#pragma once

#include <chrono>
#include <memory>
#include <string>

namespace tools {

/// Held from construction to destruction. Waits as long as other holders go on writing to the
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

}  // namespace tools
