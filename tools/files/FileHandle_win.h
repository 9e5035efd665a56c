// Windows only: owns a file handle.
#pragma once

#include "tools/WindowsApi.h"

namespace tools {

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

}  // namespace tools
