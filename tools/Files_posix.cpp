#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "tools/Error.h"
#include "tools/FileHandle_posix.h"
#include "tools/FileStamp_posix.h"
#include "tools/Files.h"
#include "tools/FolderListing.h"
#include "tools/Path.h"

namespace tools {

namespace {

bool StatusOf(std::string_view path, struct stat& status) {
  return ::stat(std::string(path).c_str(), &status) == 0;
}

/// The kind of an entry that readdir did not tell, or that is a link.
bool KindOf(int folder, const dirent& entry, FolderItem::Kind& kind) {
  struct stat status {};
  if (::fstatat(folder, entry.d_name, &status, 0) != 0) return false;
  if (S_ISREG(status.st_mode)) {
    kind = FolderItem::Kind::File;
    return true;
  }
  kind = FolderItem::Kind::Folder;
  return S_ISDIR(status.st_mode) && entry.d_type != DT_LNK &&
         ::fstatat(folder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
         S_ISDIR(status.st_mode);
}

}  // namespace

bool FileExists(std::string_view path) {
  struct stat status {};
  return StatusOf(path, status) && S_ISREG(status.st_mode);
}

bool FolderExists(std::string_view path) {
  struct stat status {};
  return StatusOf(path, status) && S_ISDIR(status.st_mode);
}

void MakeFolder(std::string_view path) {
  if (FolderExists(path)) return;
  const std::string folder = FolderOf(path);
  if (!folder.empty() && folder.size() < path.size()) MakeFolder(folder);
  if (::mkdir(std::string(path).c_str(), 0777) == 0 || FolderExists(path)) return;
  throw PathError("Der Ordner kann nicht angelegt werden", path, LastSystemError());
}

void RemoveFolderTree(std::string_view path) {
  std::error_code failure;
  std::filesystem::remove_all(ToPath(path), failure);
  if (failure) throw PathError("Der Ordner kann nicht gelöscht werden", path, failure);
}

void MoveFolder(std::string_view from, std::string_view to) {
  if (::rename(std::string(from).c_str(), std::string(to).c_str()) == 0) return;
  throw PathError("Der Ordner kann nicht umbenannt werden", from, LastSystemError());
}

void DeleteFile(std::string_view path) {
  if (::unlink(std::string(path).c_str()) == 0 || errno == ENOENT) return;
  throw PathError("Die Datei kann nicht gelöscht werden", path, LastSystemError());
}

FileStamp StampOf(std::string_view path) {
  struct stat status {};
  if (!StatusOf(path, status)) return {};
  return StampFrom(status);
}

std::string ReadWholeFile(std::string_view path) {
  const char* const what = "Die Datei kann nicht gelesen werden";
  const FileHandle file(::open(std::string(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0) {
    throw PathError(what, path, LastSystemError());
  }
  if (S_ISDIR(status.st_mode)) {
    throw PathError(what, path, std::make_error_code(std::errc::is_a_directory));
  }
  std::string content(static_cast<std::size_t>(status.st_size), '\0');
  std::size_t filled = 0;
  while (true) {
    // One byte beyond the expected size finds the end, and files that have grown since.
    if (filled == content.size()) content.resize(std::max<std::size_t>(filled + filled / 2, 4096));
    const ssize_t count = ::read(file.Get(), content.data() + filled, content.size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw PathError(what, path, LastSystemError());
    filled += static_cast<std::size_t>(count);
    if (count == 0 || filled == static_cast<std::size_t>(status.st_size)) break;
  }
  content.resize(filled);
  return content;
}

std::vector<FolderItem> ListFolder(std::string_view folder, std::error_code& failure) {
  std::vector<FolderItem> items;
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(::opendir(std::string(folder).c_str()),
                                                   ::closedir);
  if (!stream) {
    failure = LastSystemError();
    return items;
  }
  errno = 0;
  while (const dirent* entry = ::readdir(stream.get())) {
    const std::string_view name(entry->d_name);
    if (name != "." && name != "..") {
      FolderItem::Kind kind =
          entry->d_type == DT_DIR ? FolderItem::Kind::Folder : FolderItem::Kind::File;
      if (entry->d_type == DT_REG || entry->d_type == DT_DIR ||
          KindOf(::dirfd(stream.get()), *entry, kind)) {
        items.push_back({std::string(name), kind, entry->d_type != DT_REG});
      }
    }
    errno = 0;
  }
  if (errno != 0) failure = LastSystemError();
  return items;
}

}  // namespace tools
