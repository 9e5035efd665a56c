#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "tools/files/SystemFiles_posix.h"
#include "tools/files/TemporaryFiles.h"

namespace tools {

namespace {

/// Opens a file for writing where possible (network file systems lock only such), or a folder.
int OpenToLock(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (file >= 0 || errno != EISDIR) return file;
  return ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

}  // namespace

struct TemporaryHold::Mark {
  FileHandle handle;
};

TemporaryHold::TemporaryHold(const std::string& path)
    : mark_(new Mark{FileHandle(OpenToLock(path))}) {
  if (!mark_->handle.IsOpen()) {
    lost_ = errno == ENOENT;
  } else if (::flock(mark_->handle.Get(), LOCK_EX | LOCK_NB) != 0) {
    lost_ = errno == EWOULDBLOCK;
  } else {
    lost_ = !IsStillAt(mark_->handle, path);
  }
}

TemporaryHold::~TemporaryHold() = default;

bool IsOwnerGone(const std::string& path) {
  const FileHandle handle(OpenToLock(path));
  if (!handle.IsOpen()) return errno == ENOENT;
  return ::flock(handle.Get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void RemoveIfOwnerIsGone(const std::string& path, void (*remove)(const std::string&)) {
  const FileHandle handle(OpenToLock(path));
  struct stat status {};
  if (!handle.IsOpen() || ::fstat(handle.Get(), &status) != 0 || status.st_uid != ::geteuid() ||
      ::flock(handle.Get(), LOCK_EX | LOCK_NB) != 0) {
    return;
  }
  remove(path);
}

}  // namespace tools
