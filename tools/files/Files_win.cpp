#include <algorithm>

#include "tools/Error.h"
#include "tools/WindowsApi.h"
#include "tools/files/Files.h"
#include "tools/files/Path.h"
#include "tools/files/SystemFiles_win.h"
#include "tools/files/TemporaryFiles.h"

namespace tools {

namespace {

std::error_code SystemError(DWORD error) {
  return {static_cast<int>(error), std::system_category()};
}

/// Errors that tell that nothing is there, names that cannot be any among them.
bool IsAbsent(DWORD error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ||
         error == ERROR_INVALID_NAME || error == ERROR_BAD_PATHNAME || error == ERROR_DIRECTORY ||
         error == ERROR_INVALID_DRIVE;
}

/// INVALID_FILE_ATTRIBUTES when nothing is there, with a `failure` when the system cannot tell.
DWORD AttributesOf(std::string_view path, std::error_code& failure) {
  const DWORD attributes = GetFileAttributesW(LongPath(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES && !IsAbsent(GetLastError())) {
    failure = LastSystemError();
  }
  return attributes;
}

[[noreturn]] void FailToRemove(const std::wstring& path, DWORD error) {
  // The user knows the path without the prefix of LongPath.
  std::wstring_view shown(path);
  const bool share = shown.starts_with(LR"(\\?\UNC\)");
  if (shown.starts_with(LR"(\\?\)")) shown.remove_prefix(share ? 8 : 4);
  throw PathError("Der Ordner kann nicht gelöscht werden", (share ? R"(\\)" : "") + FromWide(shown),
                  SystemError(error));
}

/// Removes everything; a link is removed itself.
void RemoveTree(const std::wstring& path, DWORD attributes) {
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    SetFileAttributesW(path.c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
  }
  const bool folder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  if (folder && !IsFolderLink(attributes)) {
    FolderSearch search(path);
    if (!search.IsOpen()) FailToRemove(path, GetLastError());
    do {
      if (search.IsDots()) continue;
      RemoveTree(path + L"\\" + search.Data().cFileName, search.Data().dwFileAttributes);
    } while (search.Next());
  }
  const DWORD error = RetryWhileHeld(HeldWhen::Changing, [&] {
    return (folder ? RemoveDirectoryW(path.c_str()) : DeleteFileW(path.c_str())) != 0;
  });
  if (error != 0 && !IsAbsent(error)) FailToRemove(path, error);
}

}  // namespace

PathKind KindOf(std::string_view path, std::error_code& failure) {
  const DWORD attributes = AttributesOf(path, failure);
  if (attributes == INVALID_FILE_ATTRIBUTES) return PathKind::Absent;
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? PathKind::Folder : PathKind::File;
}

std::error_code CreateOneFolder(const std::string& path) {
  return CreateDirectoryW(LongPath(path).c_str(), nullptr) != 0 ? std::error_code()
                                                                : LastSystemError();
}

std::error_code RemoveEmptyFolder(const std::string& path) noexcept {
  return RemoveDirectoryW(LongPath(path).c_str()) != 0 ? std::error_code() : LastSystemError();
}

void RemoveFolderTree(std::string_view path) {
  std::error_code failure;
  const DWORD attributes = AttributesOf(path, failure);
  if (failure) throw PathError("Der Ordner kann nicht gelöscht werden", path, failure);
  if (attributes != INVALID_FILE_ATTRIBUTES) RemoveTree(LongPath(path), attributes);
}

void MakeFolderBelow(std::string_view root, std::string_view relative) {
  std::string path(root);
  while (!relative.empty()) {
    const std::string name(relative.substr(0, relative.find('\\')));
    relative.remove_prefix(std::min(relative.size(), name.size() + 1));
    if (name.empty()) continue;
    path = JoinPath(path, name);
    const std::error_code cause = CreateOneFolder(path);
    std::error_code failure;
    const DWORD attributes = AttributesOf(path, failure);
    const bool isFolder = attributes != INVALID_FILE_ATTRIBUTES &&
                          (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 && !IsFolderLink(attributes);
    if (isFolder) continue;
    throw PathError("Der Ordner kann nicht angelegt werden", path,
                    cause ? cause : std::make_error_code(std::errc::not_a_directory));
  }
}

void MoveFolder(std::string_view from, std::string_view to) {
  const std::wstring source = LongPath(from);
  const std::wstring target = LongPath(to);
  const DWORD error = RetryWhileHeld(
      HeldWhen::Changing, [&] { return MoveFileExW(source.c_str(), target.c_str(), 0) != 0; });
  if (error != 0)
    throw PathError("Der Ordner kann nicht umbenannt werden", IsTemporaryName(from) ? to : from,
                    SystemError(error));
}

void DeleteFile(std::string_view path) {
  const std::wstring longPath = LongPath(path);
  const DWORD error =
      RetryWhileHeld(HeldWhen::Changing, [&] { return DeleteFileW(longPath.c_str()) != 0; });
  if (error == 0 || IsAbsent(error)) return;
  throw PathError("Die Datei kann nicht gelöscht werden", path, SystemError(error));
}

void SetModificationTime(std::string_view path, FileTime time) {
  const FILETIME systemTime = ToSystemForm(time);
  const FileHandle file(
      CreateFileW(LongPath(path).c_str(), FILE_WRITE_ATTRIBUTES,
                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                  FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  if (file.IsOpen() && SetFileTime(file.Get(), nullptr, nullptr, &systemTime) != 0) return;
  throw PathError("Die Zeit der Datei kann nicht gesetzt werden", path, LastSystemError());
}

FileStamp StampOf(std::string_view path) {
  const FileHandle file(CreateFileW(LongPath(path).c_str(), FILE_READ_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  BY_HANDLE_FILE_INFORMATION information{};
  if (file.IsOpen() && GetFileInformationByHandle(file.Get(), &information) != 0) {
    return StampFrom(information);
  }
  if (!IsAbsent(GetLastError())) {
    throw PathError("Die Datei kann nicht gelesen werden", path, LastSystemError());
  }
  return {};
}

// Access control lists are only told by trying, which a check must not do.
bool CanMakeFilesIn(std::string_view /*folder*/) { return true; }

}  // namespace tools
