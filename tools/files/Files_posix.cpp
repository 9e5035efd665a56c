#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <utility>

#include "tools/Error.h"
#include "tools/files/FileHandle_posix.h"
#include "tools/files/FileStamp_posix.h"
#include "tools/files/Files.h"
#include "tools/files/FolderListing.h"
#include "tools/files/FolderSteps.h"
#include "tools/files/Path.h"
#include "tools/files/RemoveEntry_posix.h"
#include "tools/files/TemporaryName.h"

namespace tools {

namespace {

bool IsAbsent(int error) { return error == ENOENT || error == ENOTDIR; }

/// False when nothing is there, and with a `failure` when the system cannot tell.
bool StatusOf(std::string_view path, struct stat& status, std::error_code& failure) {
  if (::stat(std::string(path).c_str(), &status) == 0) return true;
  if (!IsAbsent(errno)) failure = LastSystemError();
  return false;
}

FolderItem::Kind KindFrom(const struct stat& status, bool isLink) {
  if (S_ISREG(status.st_mode)) return FolderItem::Kind::File;
  if (!S_ISDIR(status.st_mode)) return FolderItem::Kind::Special;
  return isLink ? FolderItem::Kind::FolderLink : FolderItem::Kind::Folder;
}

/// Looks at an entry whose kind readdir did not tell, or that is a link. Returns false when it has
/// vanished since.
bool LookAt(int folder, FolderItem& item) {
  const char* const name = item.name.c_str();
  struct stat status {};
  struct stat own {};
  if (::fstatat(folder, name, &own, AT_SYMLINK_NOFOLLOW) != 0) {
    item.kind = FolderItem::Kind::Dead;
    item.cause = LastSystemError();
    return errno != ENOENT;
  }
  if (::fstatat(folder, name, &status, 0) != 0) {
    item.kind = FolderItem::Kind::Dead;
    item.cause = LastSystemError();
    return true;
  }
  item.kind = KindFrom(status, S_ISLNK(own.st_mode));
  return true;
}

/// What an entry is itself; what cannot be looked at is Other.
FolderEntry::Kind OwnKind(int folder, const dirent& entry) {
  if (entry.d_type == DT_REG) return FolderEntry::Kind::File;
  if (entry.d_type == DT_DIR) return FolderEntry::Kind::Folder;
  struct stat own {};
  if (entry.d_type != DT_UNKNOWN ||
      ::fstatat(folder, entry.d_name, &own, AT_SYMLINK_NOFOLLOW) != 0) {
    return FolderEntry::Kind::Other;
  }
  if (S_ISREG(own.st_mode)) return FolderEntry::Kind::File;
  return S_ISDIR(own.st_mode) ? FolderEntry::Kind::Folder : FolderEntry::Kind::Other;
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

void SetModificationTime(std::string_view path, std::int64_t nanoseconds) {
  constexpr std::int64_t kPerSecond = 1'000'000'000;
  const std::int64_t rest = (nanoseconds % kPerSecond + kPerSecond) % kPerSecond;
  const std::array<timespec, 2> times{timespec{0, UTIME_OMIT},
                                      timespec{(nanoseconds - rest) / kPerSecond, rest}};
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

// Gives each name in the folder but "." and "..", with the folder's descriptor. What `take` raises
// passes through.
template <typename Take>
static void ReadFolder(std::string_view folder, std::error_code& failure, const Take& take) {
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(::opendir(std::string(folder).c_str()),
                                                   ::closedir);
  if (!stream) {
    failure = LastSystemError();
    return;
  }
  errno = 0;
  while (const dirent* entry = ::readdir(stream.get())) {
    const std::string_view name(entry->d_name);
    if (name != "." && name != "..") take(::dirfd(stream.get()), *entry);
    errno = 0;
  }
  if (errno != 0) failure = LastSystemError();
}

std::vector<FolderEntry> ListEntries(std::string_view folder, std::error_code& failure) {
  std::vector<FolderEntry> entries;
  ReadFolder(folder, failure, [&entries](int descriptor, const dirent& entry) {
    entries.push_back({entry.d_name, OwnKind(descriptor, entry)});
  });
  return entries;
}

std::vector<FolderItem> ListFolder(std::string_view folder, std::error_code& failure,
                                   const ListingStep& step) {
  std::vector<FolderItem> items;
  ReadFolder(folder, failure, [&](int descriptor, const dirent& entry) {
    if (step) step();
    FolderItem item{.name = entry.d_name, .mayBeLink = entry.d_type != DT_REG};
    if (entry.d_type == DT_DIR) item.kind = FolderItem::Kind::Folder;
    if (entry.d_type == DT_REG || entry.d_type == DT_DIR || LookAt(descriptor, item)) {
      items.push_back(std::move(item));
    }
  });
  return items;
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
