#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "tools/Error.h"
#include "tools/files/Files.h"
#include "tools/files/InputFile.h"
#include "tools/files/SystemFiles_posix.h"

namespace tools {

struct InputFile::State {
  std::string path;
  FileHandle file;

  [[noreturn]] void Fail(std::error_code cause) const {
    throw PathError("Die Datei kann nicht gelesen werden", path, cause);
  }

  [[nodiscard]] struct stat Status() const {
    struct stat status {};
    if (::fstat(file.Get(), &status) != 0) Fail(LastSystemError());
    return status;
  }
};

// Not blocking: opening a pipe would wait for a writer. Nobody holds a file against readers here.
InputFile::InputFile(const std::string& path, WhenHeld /*whenHeld*/)
    : state_(new State{path, FileHandle(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))}) {
  if (!state_->file.IsOpen()) state_->Fail(LastSystemError());
  const struct stat status = state_->Status();
  if (S_ISDIR(status.st_mode)) state_->Fail(std::make_error_code(std::errc::is_a_directory));
  if (!S_ISREG(status.st_mode)) state_->Fail(std::make_error_code(std::errc::invalid_argument));
}

InputFile::~InputFile() = default;

FileStamp InputFile::Stamp() const { return StampFrom(state_->Status()); }

std::optional<FileStamp> InputFile::SteadyStamp() const {
  struct stat status {};
  if (SteadyStatus(state_->file.Get(), status)) return StampFrom(status);
  (void)state_->Status();  // raises the error, where there was one
  return std::nullopt;
}

std::size_t InputFile::ReadAt(std::uint64_t offset, std::span<char> buffer) const {
  std::size_t filled = 0;
  while (filled < buffer.size()) {
    const ssize_t count = ::pread(state_->file.Get(), buffer.data() + filled,
                                  buffer.size() - filled, static_cast<off_t>(offset + filled));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) state_->Fail(LastSystemError());
    if (count == 0) break;
    filled += static_cast<std::size_t>(count);
  }
  return filled;
}

}  // namespace tools
