#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <utility>

#include "tools/Error.h"
#include "tools/files/Disk.h"
#include "tools/files/LinksAndMounts.h"
#include "tools/files/Path.h"
#include "tools/files/SystemFiles_posix.h"

namespace tools {

namespace {

// A larger write takes the system's cache large runs of memory. On a virtual machine these are the
// ones that its host has taken back: 350 MB written 3 MiB at a time took up to twice as long.
constexpr std::size_t kMostAtOnce = std::size_t{256} << 10U;

class SystemOutputFile : public OutputFile {
 public:
  SystemOutputFile(std::string target, int descriptor)
      : target_(std::move(target)), file_(descriptor) {}

  void Write(std::string_view bytes) override {
    WriteBytes(end_, bytes);
    end_ += bytes.size();
  }

  void WriteAt(std::uint64_t offset, std::string_view bytes) override { WriteBytes(offset, bytes); }

  void Truncate(std::uint64_t size) override {
    if (::ftruncate(file_.Get(), static_cast<off_t>(size)) != 0) Fail();
    end_ = size;
  }

  void Sync() override {
    if (::fsync(file_.Get()) != 0) Fail();
  }

  void Close() override {
    if (!file_.Close()) Fail();
  }

 private:
  void WriteBytes(std::uint64_t offset, std::string_view bytes) {
    while (!bytes.empty()) {
      const std::size_t most = std::min(bytes.size(), kMostAtOnce);
      const ssize_t count = ::pwrite(file_.Get(), bytes.data(), most, static_cast<off_t>(offset));
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) Fail();
      bytes.remove_prefix(static_cast<std::size_t>(count));
      offset += static_cast<std::uint64_t>(count);
    }
  }

  [[noreturn]] void Fail() const {
    throw PathError("Die Datei kann nicht geschrieben werden", target_, LastSystemError());
  }

  std::string target_;  ///< what errors name
  FileHandle file_;
  std::uint64_t end_ = 0;
};

/// Renames, and returns the system's reason when it cannot. Moving a folder changes its "..", for
/// which the system wants the right to write to it: a write-protected one gets that for the moment.
std::error_code Rename(const char* from, const char* to) {
  if (::rename(from, to) == 0) return {};
  const std::error_code cause = LastSystemError();
  struct stat status {};
  if (cause != std::errc::permission_denied || ::lstat(from, &status) != 0 ||
      !S_ISDIR(status.st_mode) || (status.st_mode & S_IWUSR) != 0) {
    return cause;
  }
  const mode_t mode = status.st_mode & 07777U;
  if (::fchmodat(AT_FDCWD, from, mode | S_IWUSR, AT_SYMLINK_NOFOLLOW) != 0) return cause;
  const bool done = ::rename(from, to) == 0;
  [[maybe_unused]] const int restored =
      ::fchmodat(AT_FDCWD, done ? to : from, mode, AT_SYMLINK_NOFOLLOW);
  return done ? std::error_code() : cause;
}

}  // namespace

std::unique_ptr<OutputFile> SystemDisk::CreateNew(const std::string& path,
                                                  const std::string& target) {
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (descriptor < 0) {
    throw PathError("Die Datei kann nicht angelegt werden", target, LastSystemError());
  }
  return std::make_unique<SystemOutputFile>(target, descriptor);
}

void SystemDisk::Replace(const std::string& from, const std::string& to) {
  const char* const what = "Die Datei kann nicht ersetzt werden";
  struct stat old {};
  if (::stat(to.c_str(), &old) == 0) {
    // A rename would pass over a write protection of the file itself.
    if (::faccessat(AT_FDCWD, to.c_str(), W_OK, AT_EACCESS) != 0)
      throw PathError(what, to, LastSystemError());
    if (::chmod(from.c_str(), old.st_mode & 07777U) != 0) {
      throw PathError(what, to, LastSystemError());
    }
    // Only the superuser may give a file away; for anyone else the new file is simply their own.
    [[maybe_unused]] const int kept = ::chown(from.c_str(), old.st_uid, old.st_gid);
  }
  if (const std::error_code cause = Rename(from.c_str(), to.c_str())) {
    throw PathError(what, to, cause);
  }
}

void SystemDisk::SyncFolder(const std::string& folder) noexcept {
  const FileHandle handle(
      ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (handle.IsOpen()) ::fsync(handle.Get());
}

void SystemDisk::Discard(const std::string& path) noexcept { ::unlink(path.c_str()); }

}  // namespace tools
