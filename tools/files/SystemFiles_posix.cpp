#include "tools/files/SystemFiles_posix.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <memory>
#include <string_view>
#include <thread>
#include <vector>

#include "tools/Error.h"
#include "tools/files/Path.h"

namespace tools {

using namespace std::chrono_literals;

namespace {

// More than a tick of the clock that the system stamps files with, and than one write mostly takes.
constexpr std::chrono::nanoseconds kQuiet = 20ms;

/// How long it takes until the file is quiet. Times further in the future say nothing.
std::chrono::nanoseconds TimeToQuiet(const struct stat& status) {
  const FileTime modified = FileTimeOf(status.st_mtim);
  const FileTime now = std::chrono::system_clock::now();
  if (modified <= now - kQuiet || modified >= now + kQuiet) return 0ns;
  return kQuiet - (now - modified);
}

}  // namespace

bool BecomesSteady(int descriptor, struct stat& status) {
  const std::chrono::nanoseconds wait = TimeToQuiet(status);
  if (wait == 0ns) return true;
  const FileStamp before = StampFrom(status);
  std::this_thread::sleep_for(wait);
  return ::fstat(descriptor, &status) == 0 && StampFrom(status) == before;
}

bool IsStillAt(const FileHandle& handle, const std::string& path) {
  struct stat opened {};
  struct stat now {};
  if (::fstat(handle.Get(), &opened) != 0) return true;
  if (::lstat(path.c_str(), &now) != 0) return errno != ENOENT;
  return opened.st_dev == now.st_dev && opened.st_ino == now.st_ino;
}

namespace {

[[noreturn]] void FailToRemove(const std::string& path, std::error_code cause) {
  throw PathError("Der Ordner kann nicht gelöscht werden", path, cause);
}

/// Everything in a folder but "." and "..".
std::vector<std::string> NamesIn(int folder, const std::string& path) {
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(::fdopendir(folder), ::closedir);
  if (!stream) FailToRemove(path, LastSystemError());
  std::vector<std::string> names;
  errno = 0;
  while (const dirent* entry = ::readdir(stream.get())) {
    const std::string_view name(entry->d_name);
    if (name != "." && name != "..") names.emplace_back(name);
  }
  if (errno != 0) FailToRemove(path, LastSystemError());
  return names;
}

/// A folder that its owner may not search is made accessible first.
int OpenFolder(int parent, const char* name) {
  const int folder = ::openat(parent, name, kFolderFlags);
  if (folder >= 0 || errno != EACCES) return folder;
  if (::fchmodat(parent, name, S_IRWXU, AT_SYMLINK_NOFOLLOW) != 0) {
    errno = EACCES;
    return -1;
  }
  return ::openat(parent, name, kFolderFlags);
}

bool IsMountRoot(int folder) {
  struct statx status {};
  return ::statx(folder, "", AT_EMPTY_PATH, STATX_TYPE, &status) == 0 &&
         (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

/// What was write-protected goes all the same: asking about it was the caller's business.
void AllowChanges(int folder) {
  struct stat status {};
  if (::fstat(folder, &status) == 0 && (status.st_mode & S_IRWXU) != S_IRWXU) {
    [[maybe_unused]] const int changed = ::fchmod(folder, (status.st_mode & 07777U) | S_IRWXU);
  }
}

}  // namespace

void RemoveEntry(int parent, const std::string& name, const std::string& path) {
  if (::unlinkat(parent, name.c_str(), 0) == 0 || errno == ENOENT) return;
  const std::error_code cause = LastSystemError();
  const FileHandle folder(OpenFolder(parent, name.c_str()));
  if (!folder.IsOpen()) {
    // What is no folder could not be unlinked; what is one could not be opened.
    FailToRemove(path, errno == ENOTDIR || errno == ELOOP ? cause : LastSystemError());
  }
  if (IsMountRoot(folder.Get())) {
    FailToRemove(path, std::make_error_code(std::errc::device_or_resource_busy));
  }
  AllowChanges(folder.Get());
  for (const std::string& child : NamesIn(::dup(folder.Get()), path)) {
    RemoveEntry(folder.Get(), child, JoinPath(path, child));
  }
  if (::unlinkat(parent, name.c_str(), AT_REMOVEDIR) != 0 && errno != ENOENT) {
    FailToRemove(path, LastSystemError());
  }
}

}  // namespace tools
