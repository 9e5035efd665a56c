// POSIX only: what the operations on files share.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string>

#include "tools/files/Files.h"

namespace tools {

/// Owns a file descriptor.
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
  /// The descriptor, which the caller owns from now on.
  [[nodiscard]] int Release() {
    const int descriptor = descriptor_;
    descriptor_ = -1;
    return descriptor;
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

/// Opens a folder to work below it, and no link to one.
inline constexpr int kFolderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

/// The system's time of a file. Times that a FileTime cannot hold (from 2262 on) become the last
/// that it can.
[[nodiscard]] inline FileTime FileTimeOf(const timespec& time) {
  using namespace std::chrono;
  constexpr seconds kMost = duration_cast<seconds>(nanoseconds::max()) - seconds{1};
  return FileTime{std::clamp(seconds{time.tv_sec}, -kMost, kMost) + nanoseconds{time.tv_nsec}};
}

[[nodiscard]] inline FileStamp StampFrom(const struct stat& status) {
  return {.exists = true,
          .size = static_cast<std::uint64_t>(status.st_size),
          .modified = FileTimeOf(status.st_mtim),
          .device = status.st_dev,
          .identity = status.st_ino};
}

/// `status` is an open file's. Systems count a file's time in ticks of some milliseconds, and set
/// it when a write begins: a file that was changed just now is looked at again when it should have
/// been quiet for 20 milliseconds. Returns false when it has changed again by then, and where the
/// system fails.
[[nodiscard]] bool BecomesSteady(int descriptor, struct stat& status);

/// True while `path` still names the open file or folder, links not followed: it was neither
/// renamed nor replaced. Also true when the system fails to tell.
[[nodiscard]] bool IsStillAt(const FileHandle& handle, const std::string& path);

/// Removes `name` in the open folder `parent` with all that it holds; `path` is what an error calls
/// it. Folders are opened by way of their parent and never through a link, so that nobody can lead
/// the removal elsewhere meanwhile. Raises Error.
void RemoveEntry(int parent, const std::string& name, const std::string& path);

}  // namespace tools
