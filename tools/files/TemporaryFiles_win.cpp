#include "tools/files/SystemFiles_win.h"
#include "tools/files/TemporaryFiles.h"

namespace tools {

namespace {

/// Opens a file or folder for reading, sharing it as `sharing` says.
HANDLE OpenShared(const std::string& path, DWORD sharing) {
  return CreateFileW(LongPath(path).c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING,
                     FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

}  // namespace

struct TemporaryHold::Mark {
  FileHandle handle;
};

// Everything is shared, so that the owner can write, rename and remove; the open handle itself is
// the mark.
TemporaryHold::TemporaryHold(const std::string& path)
    : mark_(new Mark{
          FileHandle(OpenShared(path, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE))}) {
  if (mark_->handle.IsOpen()) return;
  const DWORD error = GetLastError();
  lost_ = error == ERROR_FILE_NOT_FOUND || error == ERROR_SHARING_VIOLATION;
}

TemporaryHold::~TemporaryHold() = default;

// Sharing nothing fails while anybody has it open.
bool IsOwnerGone(const std::string& path) { return FileHandle(OpenShared(path, 0)).IsOpen(); }

void RemoveIfOwnerIsGone(const std::string& path, void (*remove)(const std::string&)) {
  if (IsOwnerGone(path)) remove(path);
}

}  // namespace tools
