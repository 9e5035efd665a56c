#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>
#include <utility>

#include "tools/Error.h"
#include "tools/files/FindFiles.h"

namespace tools {

namespace {

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

// Gives each name in the folder but "." and "..", with the folder's descriptor. What `take` raises
// passes through.
template <typename Take>
void ReadFolder(std::string_view folder, std::error_code& failure, const Take& take) {
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

}  // namespace

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

}  // namespace tools
