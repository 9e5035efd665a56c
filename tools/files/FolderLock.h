// Keeps two running programs from replacing a file of one folder at the same moment.
#pragma once

#include <memory>
#include <string>

namespace tools {

/// Held from construction to destruction. Waits a few seconds for another holder and then raises
/// Error. Where the system cannot lock (some network file systems) it does nothing.
class FolderLock {
 public:
  explicit FolderLock(const std::string& folder);
  ~FolderLock();
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace tools
