// Windows only: what the operations on files share.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <thread>

#include "tools/WindowsApi.h"
#include "tools/files/Files.h"

namespace tools {

/// `utf8` as an absolute path behind the prefix "\\?\" (or "\\?\UNC\"), "." and ".." taken out: the
/// system then takes it as it is, whatever its length, and names may end in dots and blanks.
[[nodiscard]] std::wstring LongPath(std::string_view utf8);

/// Owns a file handle.
class FileHandle {
 public:
  explicit FileHandle(HANDLE handle) : handle_(handle) {}
  ~FileHandle() {
    if (IsOpen()) CloseHandle(handle_);
  }
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;

  /// Owns `handle` from now on; false when it is none. Only while nothing is open.
  [[nodiscard]] bool Take(HANDLE handle) {
    handle_ = handle;
    return IsOpen();
  }
  [[nodiscard]] bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  [[nodiscard]] HANDLE Get() const { return handle_; }

  /// Closes now and tells whether the system could write everything.
  [[nodiscard]] bool Close() {
    const HANDLE handle = handle_;
    handle_ = INVALID_HANDLE_VALUE;
    return CloseHandle(handle) != 0;
  }

 private:
  HANDLE handle_;
};

/// Lists a folder entry by entry; the first one is there when it is open.
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

/// True for junctions and symbolic links of folders.
[[nodiscard]] inline bool IsFolderLink(DWORD attributes) {
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
         (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

/// What is done to a file that others may hold. A read then fails with a sharing violation alone. A
/// replacement, move or removal also fails with "access denied" (the file is mapped, or waits to be
/// deleted) and, of a folder, with "not empty" (a file in it waits).
enum class HeldWhen { Reading, Changing };

[[nodiscard]] inline bool IsHeldByOthers(DWORD error, HeldWhen when) {
  if (error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION) return true;
  return when == HeldWhen::Changing &&
         (error == ERROR_ACCESS_DENIED || error == ERROR_DIR_NOT_EMPTY);
}

/// Calls `attempt` until it returns true, again while the last error says that the file is held and
/// `mayRetry` allows it: for one second when reading, for two when changing. Returns 0 or the last
/// error.
template <typename Attempt, typename MayRetry>
[[nodiscard]] DWORD RetryWhileHeld(HeldWhen when, const Attempt& attempt,
                                   const MayRetry& mayRetry) {
  constexpr std::chrono::milliseconds kPause{50};
  const int attempts = when == HeldWhen::Reading ? 20 : 40;
  for (int number = 1;; ++number) {
    if (attempt()) return 0;
    const DWORD error = GetLastError();
    if (!IsHeldByOthers(error, when) || number == attempts || !mayRetry()) return error;
    std::this_thread::sleep_for(kPause);
  }
}

template <typename Attempt>
[[nodiscard]] DWORD RetryWhileHeld(HeldWhen when, const Attempt& attempt) {
  return RetryWhileHeld(when, attempt, [] { return true; });
}

[[nodiscard]] inline FileStamp StampFrom(const BY_HANDLE_FILE_INFORMATION& information) {
  const auto join = [](DWORD high, DWORD low) {
    return (static_cast<std::uint64_t>(high) << 32U) | low;
  };
  return {.exists = true,
          .size = join(information.nFileSizeHigh, information.nFileSizeLow),
          .modified = FromSystemForm(information.ftLastWriteTime),
          .device = information.dwVolumeSerialNumber,
          .identity = join(information.nFileIndexHigh, information.nFileIndexLow)};
}

}  // namespace tools
