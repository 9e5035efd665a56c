#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "tools/Error.h"
#include "tools/files/Files.h"
#include "tools/files/SystemFiles_posix.h"
#include "tools/files/TemporaryFiles.h"

namespace tools {

namespace {

constexpr std::size_t kChunkBytes = std::size_t{8} << 20U;
/// Up to this size one read and one write are quicker than having the kernel copy.
constexpr std::size_t kBufferBytes = std::size_t{64} << 10U;

bool WriteAll(int target, const char* bytes, std::size_t size) {
  while (size > 0) {
    const ssize_t count = ::write(target, bytes, size);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    bytes += count;
    size -= static_cast<std::size_t>(count);
  }
  return true;
}

/// Copies by way of a buffer from where both files stand to the source's end: where a read finds
/// less than it asks for, once the `size` that the file had is reached.
bool CopyThroughBuffer(int source, int target, std::uint64_t size, std::uint64_t& copied,
                       const CopyProgress& progress) {
  std::array<char, kBufferBytes> buffer;
  while (true) {
    const ssize_t count = ::read(source, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    if (count == 0) return true;
    if (!WriteAll(target, buffer.data(), static_cast<std::size_t>(count))) return false;
    const std::uint64_t before = copied;
    copied += static_cast<std::uint64_t>(count);
    if (progress && before / kChunkBytes != copied / kChunkBytes) progress(copied);
    if (copied == size && static_cast<std::size_t>(count) < buffer.size()) return true;
  }
}

/// Lets the kernel copy (which shares the blocks where the file system can), and falls back to a
/// buffer where it cannot: between some file systems, and for files whose size the system hides.
bool CopyContent(int source, int target, std::uint64_t size, std::uint64_t& copied,
                 const CopyProgress& progress) {
  while (size > kBufferBytes) {
    const ssize_t count = ::copy_file_range(source, nullptr, target, nullptr, kChunkBytes, 0);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0 && (errno == EIO || errno == ENOSPC || errno == EDQUOT || errno == EFBIG)) {
      return false;
    }
    if (count <= 0) break;
    copied += static_cast<std::uint64_t>(count);
    if (progress) progress(copied);
  }
  return CopyThroughBuffer(source, target, size, copied, progress);
}

CopyResult Failure(std::error_code cause) {
  return {.errorText = SystemErrorText(cause), .cause = cause};
}

/// Copies the source as it is at one moment, with its time. `status` receives its status then.
std::error_code CopyUnchanged(const FileHandle& source, const FileHandle& target,
                              struct stat& status, std::uint64_t& copied,
                              const CopyProgress& progress) {
  constexpr int kTries = 2;
  for (int i = 0; i < kTries; ++i) {
    copied = 0;
    const bool isAtBegin = ::lseek(source.Get(), 0, SEEK_SET) == 0 &&
                           ::lseek(target.Get(), 0, SEEK_SET) == 0 &&
                           ::ftruncate(target.Get(), 0) == 0;
    if (!isAtBegin) return LastSystemError();
    if (::fstat(source.Get(), &status) != 0 || !BecomesSteady(source.Get(), status)) continue;
    if (!CopyContent(source.Get(), target.Get(), static_cast<std::uint64_t>(status.st_size), copied,
                     progress)) {
      return LastSystemError();
    }
    struct stat after {};
    if (::fstat(source.Get(), &after) != 0) return LastSystemError();
    if (StampFrom(after) == StampFrom(status)) return {};
  }
  return std::make_error_code(kChangesMeanwhile);
}

/// Copies into a file that does not exist yet, and removes it again when that fails.
CopyResult CopyToNew(const FileHandle& source, const struct stat& status, const std::string& target,
                     const CopyProgress& progress) {
  FileHandle file(::open(target.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                         (status.st_mode & 0777U) | S_IRUSR | S_IWUSR));
  if (!file.IsOpen()) return Failure(LastSystemError());
  CopyResult result;
  try {
    struct stat copied {};
    std::error_code cause = CopyUnchanged(source, file, copied, result.bytes, progress);
    const std::array<timespec, 2> times{timespec{0, UTIME_OMIT}, copied.st_mtim};
    if (!cause && (::futimens(file.Get(), times.data()) != 0 || !file.Close())) {
      cause = LastSystemError();
    }
    if (!cause) return result;
    result = Failure(cause);
  } catch (...) {
    ::unlink(target.c_str());
    throw;
  }
  ::unlink(target.c_str());
  return result;
}

}  // namespace

CopyResult CopyFile(std::string_view source, std::string_view target,
                    const CopyProgress& progress) {
  const FileHandle file(::open(std::string(source).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0) return Failure(LastSystemError());
  if (S_ISDIR(status.st_mode)) return Failure(std::make_error_code(std::errc::is_a_directory));
  if (!S_ISREG(status.st_mode)) return Failure(std::make_error_code(std::errc::invalid_argument));

  const std::string targetPath(target);
  CopyResult result = CopyToNew(file, status, targetPath, progress);
  std::error_code ignored;
  if (result.cause != std::errc::file_exists || KindOf(target, ignored) == PathKind::Folder) {
    return result;
  }

  // The target's old content stays until the new one is whole.
  const std::string temporary = TemporaryNameBeside(target);
  result = CopyToNew(file, status, temporary, progress);
  if (result.Succeeded() && ::rename(temporary.c_str(), targetPath.c_str()) != 0) {
    result = Failure(LastSystemError());
    ::unlink(temporary.c_str());
  }
  return result;
}

}  // namespace tools
