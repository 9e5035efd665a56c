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

/// Removes a folder with all that it holds. Only the folder at work is open, and nothing here calls
/// itself, so that no tree is too deep.
class TreeRemoval {
 public:
  TreeRemoval(int parent, std::string path) : parent_(parent), path_(std::move(path)) {}

  void Run(const std::string& name) {
    if (!Unlink(parent_, name)) Enter(parent_, name);
    while (!levels_.empty()) {
      std::vector<std::string>& names = levels_.back().names;
      if (names.empty()) {
        Leave();
        continue;
      }
      const std::string child = std::move(names.back());
      names.pop_back();
      if (!Unlink(folder_.Get(), child)) Enter(folder_.Get(), child);
    }
  }

 private:
  struct Level {
    std::string name;
    std::size_t pathLength;  ///< of the folder above
    FileStamp stamp;
    std::vector<std::string> names;  ///< what is still to go
  };

  /// False when it could not be unlinked: it may be a folder.
  bool Unlink(int parent, const std::string& name) {
    if (::unlinkat(parent, name.c_str(), 0) == 0 || errno == ENOENT) return true;
    notUnlinked_ = LastSystemError();
    return false;
  }

  void Enter(int parent, const std::string& name) {
    const std::size_t length = path_.size();
    if (!levels_.empty()) path_.append(1, kPathSeparator).append(name);
    FileHandle folder(OpenFolder(parent, name.c_str()));
    if (!folder.IsOpen()) {
      // What is no folder could not be unlinked; what is one could not be opened.
      Fail(errno == ENOTDIR || errno == ELOOP ? notUnlinked_ : LastSystemError());
    }
    if (IsMountRoot(folder.Get())) Fail(std::make_error_code(std::errc::device_or_resource_busy));
    AllowChanges(folder.Get());
    levels_.push_back({name, length, StampOf(folder), NamesIn(::dup(folder.Get()), path_)});
    if (levels_.back().names.empty()) {
      LeaveTo(parent);
    } else {
      folder_.Take(folder.Release());
    }
  }

  void Leave() {
    if (levels_.size() > 1) GoUp(levels_[levels_.size() - 2].stamp);
    LeaveTo(levels_.size() > 1 ? folder_.Get() : parent_);
  }

  void LeaveTo(int parent) {
    const Level left = std::move(levels_.back());
    levels_.pop_back();
    if (::unlinkat(parent, left.name.c_str(), AT_REMOVEDIR) != 0 && errno != ENOENT) {
      Fail(LastSystemError());
    }
    path_.resize(left.pathLength);
  }

  // Somebody may have moved the folder meanwhile: nothing is removed beside its new place.
  void GoUp(const FileStamp& known) {
    const int above = ::openat(folder_.Get(), "..", kFolderFlags);
    if (above < 0) Fail(LastSystemError());
    folder_.Take(above);
    const FileStamp stamp = StampOf(folder_);
    if (stamp.device != known.device || stamp.identity != known.identity) {
      Fail(std::make_error_code(std::errc::device_or_resource_busy));
    }
  }

  [[nodiscard]] FileStamp StampOf(const FileHandle& folder) const {
    struct stat status {};
    if (::fstat(folder.Get(), &status) != 0) Fail(LastSystemError());
    return StampFrom(status);
  }

  [[noreturn]] void Fail(std::error_code cause) const { FailToRemove(path_, cause); }

  int parent_;
  std::string path_;  ///< of the folder at work
  FileHandle folder_{-1};
  std::vector<Level> levels_;
  std::error_code notUnlinked_;
};

}  // namespace

void RemoveEntry(int parent, const std::string& name, const std::string& path) {
  TreeRemoval(parent, path).Run(name);
}

}  // namespace tools
