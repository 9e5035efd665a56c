// POSIX only: owns a file descriptor.
#pragma once

#include <unistd.h>

namespace tools {

class FileHandle {
 public:
  explicit FileHandle(int descriptor) : descriptor_(descriptor) {}
  ~FileHandle() {
    if (IsOpen()) ::close(descriptor_);
  }
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;

  /// Closes the present descriptor and owns this one from now on.
  void Take(int descriptor) {
    if (IsOpen()) ::close(descriptor_);
    descriptor_ = descriptor;
  }
  [[nodiscard]] bool IsOpen() const { return descriptor_ >= 0; }
  [[nodiscard]] int Get() const { return descriptor_; }

  /// Closes now and tells whether the system could write everything.
  [[nodiscard]] bool Close() {
    const int descriptor = descriptor_;
    descriptor_ = -1;
    return ::close(descriptor) == 0;
  }

 private:
  int descriptor_;
};

}  // namespace tools
