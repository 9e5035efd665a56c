#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "tools/Error.h"
#include "tools/files/Files.h"
#include "tools/files/InputFile.h"
#include "tools/files/SystemFiles_posix.h"

namespace tools {

struct InputFile::State {
  std::string path;
  FileHandle file;
  std::optional<struct stat> first;  ///< what opening saw; for the first SteadyStamp alone

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
    : state_(new State{
          path, FileHandle(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)), {}}) {
  if (!state_->file.IsOpen()) state_->Fail(LastSystemError());
  const struct stat status = state_->Status();
  state_->first = status;
  if (S_ISDIR(status.st_mode)) state_->Fail(std::make_error_code(std::errc::is_a_directory));
  if (!S_ISREG(status.st_mode)) state_->Fail(std::make_error_code(std::errc::invalid_argument));
}

InputFile::~InputFile() = default;

FileStamp InputFile::Stamp() const { return StampFrom(state_->Status()); }

std::optional<FileStamp> InputFile::SteadyStamp() const {
  const std::optional<struct stat> first = std::exchange(state_->first, std::nullopt);
  struct stat status = first ? *first : state_->Status();
  if (BecomesSteady(state_->file.Get(), status)) return StampFrom(status);
  (void)state_->Status();  // raises the error, where there was one
  return std::nullopt;
}

std::size_t InputFile::ReadSome(std::uint64_t offset, std::span<char> buffer) const {
  ssize_t count = -1;
  do {
    count = ::pread(state_->file.Get(), buffer.data(), buffer.size(), static_cast<off_t>(offset));
  } while (count < 0 && errno == EINTR);
  if (count < 0) state_->Fail(LastSystemError());
  return static_cast<std::size_t>(count);
}

}  // namespace tools
