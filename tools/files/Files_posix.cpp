#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <memory>
#include <utility>

#include "tools/Error.h"
#include "tools/files/Files.h"
#include "tools/files/Path.h"
#include "tools/files/SystemFiles_posix.h"
#include "tools/files/TemporaryFiles.h"

namespace tools {

using namespace std::chrono_literals;

namespace {

bool IsAbsent(int error) { return error == ENOENT || error == ENOTDIR; }

/// False when nothing is there, and with a `failure` when the system cannot tell.
bool StatusOf(std::string_view path, struct stat& status, std::error_code& failure) {
  if (::stat(std::string(path).c_str(), &status) == 0) return true;
  if (!IsAbsent(errno)) failure = LastSystemError();
  return false;
}

}  // namespace

PathKind KindOf(std::string_view path, std::error_code& failure) {
  struct stat status {};
  if (!StatusOf(path, status, failure)) return PathKind::Absent;
  if (S_ISREG(status.st_mode)) return PathKind::File;
  return S_ISDIR(status.st_mode) ? PathKind::Folder : PathKind::Other;
}

std::error_code CreateOneFolder(const std::string& path) {
  return ::mkdir(path.c_str(), 0777) == 0 ? std::error_code() : LastSystemError();
}

std::error_code RemoveEmptyFolder(const std::string& path) noexcept {
  return ::rmdir(path.c_str()) == 0 ? std::error_code() : LastSystemError();
}

void RemoveFolderTree(std::string_view path) {
  const std::string folder(path);
  RemoveEntry(AT_FDCWD, folder, folder);
}

void MakeFolderBelow(std::string_view root, std::string_view relative) {
  const char* const what = "Der Ordner kann nicht angelegt werden";
  std::string path(root);
  constexpr int kFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
  FileHandle folder(::open(path.c_str(), kFlags));
  if (!folder.IsOpen()) throw PathError(what, path, LastSystemError());
  while (!relative.empty()) {
    const std::string name(relative.substr(0, relative.find('/')));
    relative.remove_prefix(std::min(relative.size(), name.size() + 1));
    if (name.empty()) continue;
    path = JoinPath(path, name);
    if (::mkdirat(folder.Get(), name.c_str(), 0777) != 0 && errno != EEXIST) {
      throw PathError(what, path, LastSystemError());
    }
    const int below = ::openat(folder.Get(), name.c_str(), kFlags);
    if (below < 0) throw PathError(what, path, LastSystemError());
    folder.Take(below);
  }
}

void MoveFolder(std::string_view from, std::string_view to) {
  if (::rename(std::string(from).c_str(), std::string(to).c_str()) == 0) return;
  throw PathError("Der Ordner kann nicht umbenannt werden", IsTemporaryName(from) ? to : from,
                  LastSystemError());
}

void DeleteFile(std::string_view path) {
  if (::unlink(std::string(path).c_str()) == 0 || IsAbsent(errno)) return;
  throw PathError("Die Datei kann nicht gelöscht werden", path, LastSystemError());
}

void SetModificationTime(std::string_view path, FileTime time) {
  using std::chrono::seconds;
  const seconds whole = std::chrono::floor<seconds>(time.time_since_epoch());
  const std::chrono::nanoseconds rest = (time.time_since_epoch() % 1s + 1s) % 1s;
  const std::array<timespec, 2> times{timespec{0, UTIME_OMIT},
                                      timespec{whole.count(), rest.count()}};
  if (::utimensat(AT_FDCWD, std::string(path).c_str(), times.data(), AT_SYMLINK_NOFOLLOW) == 0) {
    return;
  }
  throw PathError("Die Zeit der Datei kann nicht gesetzt werden", path, LastSystemError());
}

FileStamp StampOf(std::string_view path) {
  struct stat status {};
  std::error_code failure;
  if (StatusOf(path, status, failure)) return StampFrom(status);
  if (failure) throw PathError("Die Datei kann nicht gelesen werden", path, failure);
  return {};
}

bool CanMakeFilesIn(std::string_view folder) {
  for (std::string place(folder);
       ::faccessat(AT_FDCWD, place.c_str(), W_OK | X_OK, AT_EACCESS) != 0;) {
    std::string above = FolderOf(place);
    if (errno != ENOENT || above.size() >= place.size()) return false;
    place = std::move(above);
  }
  return true;
}

}  // namespace tools
