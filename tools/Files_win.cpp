#include <algorithm>

#include "tools/Error.h"
#include "tools/FileHandle_win.h"
#include "tools/FileStamp_win.h"
#include "tools/Files.h"
#include "tools/FolderListing.h"
#include "tools/Path.h"
#include "tools/WindowsApi.h"
#include "tools/WindowsPath.h"
#include "tools/WindowsText.h"

namespace tools {

namespace {

DWORD AttributesOf(std::string_view path) { return GetFileAttributesW(LongPath(path).c_str()); }

/// Junctions and symbolic links of folders.
bool IsFolderLink(DWORD attributes) {
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
         (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

class FolderSearch {
 public:
  explicit FolderSearch(const std::wstring& folder)
      : handle_(FindFirstFileExW((folder + L"\\*").c_str(), FindExInfoBasic, &data_,
                                 FindExSearchNameMatch, nullptr, 0)) {}
  ~FolderSearch() {
    if (IsOpen()) FindClose(handle_);
  }
  FolderSearch(const FolderSearch&) = delete;
  FolderSearch& operator=(const FolderSearch&) = delete;

  [[nodiscard]] bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  [[nodiscard]] const WIN32_FIND_DATAW& Data() const { return data_; }
  [[nodiscard]] bool IsDots() const {
    const std::wstring_view name(data_.cFileName);
    return name == L"." || name == L"..";
  }
  bool Next() { return FindNextFileW(handle_, &data_) != 0; }

 private:
  WIN32_FIND_DATAW data_{};
  HANDLE handle_;
};

/// Removes everything; a link is removed itself. Returns false where something stays, with the
/// system's last error telling why.
bool RemoveTree(const std::wstring& path, DWORD attributes) {
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    SetFileAttributesW(path.c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
  }
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return DeleteFileW(path.c_str()) != 0;
  if (!IsFolderLink(attributes)) {
    FolderSearch search(path);
    if (!search.IsOpen()) return false;
    do {
      if (search.IsDots()) continue;
      const std::wstring child = path + L"\\" + search.Data().cFileName;
      if (!RemoveTree(child, search.Data().dwFileAttributes)) return false;
    } while (search.Next());
  }
  return RemoveDirectoryW(path.c_str()) != 0;
}

}  // namespace

bool FileExists(std::string_view path) {
  const DWORD attributes = AttributesOf(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool FolderExists(std::string_view path) {
  const DWORD attributes = AttributesOf(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

void MakeFolder(std::string_view path) {
  if (FolderExists(path)) return;
  const std::string folder = FolderOf(path);
  if (!folder.empty() && folder.size() < path.size()) MakeFolder(folder);
  if (CreateDirectoryW(LongPath(path).c_str(), nullptr) != 0) return;
  const std::error_code cause = LastSystemError();
  if (FolderExists(path)) return;
  throw PathError("Der Ordner kann nicht angelegt werden", path, cause);
}

void RemoveFolderTree(std::string_view path) {
  const DWORD attributes = AttributesOf(path);
  if (attributes == INVALID_FILE_ATTRIBUTES && !FolderExists(path)) return;
  if (!RemoveTree(LongPath(path), attributes)) {
    throw PathError("Der Ordner kann nicht gelöscht werden", path, LastSystemError());
  }
}

void MoveFolder(std::string_view from, std::string_view to) {
  if (MoveFileExW(LongPath(from).c_str(), LongPath(to).c_str(), 0) != 0) return;
  throw PathError("Der Ordner kann nicht umbenannt werden", from, LastSystemError());
}

void DeleteFile(std::string_view path) {
  if (DeleteFileW(LongPath(path).c_str()) != 0) return;
  const DWORD error = GetLastError();
  if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return;
  throw PathError("Die Datei kann nicht gelöscht werden", path,
                  {static_cast<int>(error), std::system_category()});
}

FileStamp StampOf(std::string_view path) {
  const FileHandle file(CreateFileW(LongPath(path).c_str(), FILE_READ_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  BY_HANDLE_FILE_INFORMATION information{};
  if (!file.IsOpen() || GetFileInformationByHandle(file.Get(), &information) == 0) return {};
  return StampFrom(information);
}

std::string ReadWholeFile(std::string_view path) {
  const char* const what = "Die Datei kann nicht gelesen werden";
  if (FolderExists(path)) {
    throw PathError(what, path, std::make_error_code(std::errc::is_a_directory));
  }
  const FileHandle file(CreateFileW(LongPath(path).c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  LARGE_INTEGER size{};
  if (!file.IsOpen() || GetFileSizeEx(file.Get(), &size) == 0) {
    throw PathError(what, path, LastSystemError());
  }
  constexpr std::size_t kMostPerCall = std::size_t{1} << 30U;
  std::string content(static_cast<std::size_t>(size.QuadPart), '\0');
  std::size_t filled = 0;
  while (filled < content.size()) {
    DWORD count = 0;
    const auto wanted = static_cast<DWORD>(std::min(content.size() - filled, kMostPerCall));
    if (ReadFile(file.Get(), content.data() + filled, wanted, &count, nullptr) == 0) {
      throw PathError(what, path, LastSystemError());
    }
    if (count == 0) break;
    filled += count;
  }
  content.resize(filled);
  return content;
}

std::vector<FolderItem> ListFolder(std::string_view folder, std::error_code& failure) {
  std::vector<FolderItem> items;
  FolderSearch search(LongPath(folder));
  if (!search.IsOpen()) {
    failure = LastSystemError();
    return items;
  }
  do {
    const DWORD attributes = search.Data().dwFileAttributes;
    if (search.IsDots() || IsFolderLink(attributes)) continue;
    const bool isFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    items.push_back({FromWide(search.Data().cFileName),
                     isFolder ? FolderItem::Kind::Folder : FolderItem::Kind::File,
                     (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0});
  } while (search.Next());
  if (GetLastError() != ERROR_NO_MORE_FILES) failure = LastSystemError();
  return items;
}

}  // namespace tools
