#include <algorithm>

#include "tools/Error.h"
#include "tools/files/Files.h"
#include "tools/files/InputFile.h"
#include "tools/files/SystemFiles_win.h"

namespace tools {

struct InputFile::State {
  std::string path;
  FileHandle file;

  [[noreturn]] void Fail(std::error_code cause) const {
    throw PathError("Die Datei kann nicht gelesen werden", path, cause);
  }
};

InputFile::InputFile(const std::string& path, WhenHeld whenHeld)
    : state_(new State{path, FileHandle(INVALID_HANDLE_VALUE)}) {
  const std::wstring longPath = LongPath(path);
  const DWORD error = RetryWhileHeld(
      HeldWhen::Reading,
      [&] {
        return state_->file.Take(CreateFileW(
            longPath.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
            nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
      },
      [whenHeld] { return whenHeld == WhenHeld::Wait; });
  if (error != 0) {
    std::error_code ignored;
    // The system only says "access denied" of a folder.
    if (KindOf(path, ignored) == PathKind::Folder) {
      state_->Fail(std::make_error_code(std::errc::is_a_directory));
    }
    state_->Fail({static_cast<int>(error), std::system_category()});
  }
  if (GetFileType(state_->file.Get()) != FILE_TYPE_DISK) {
    state_->Fail(std::make_error_code(std::errc::invalid_argument));
  }
}

InputFile::~InputFile() = default;

FileStamp InputFile::Stamp() const {
  BY_HANDLE_FILE_INFORMATION information{};
  if (GetFileInformationByHandle(state_->file.Get(), &information) == 0) {
    state_->Fail(LastSystemError());
  }
  return StampFrom(information);
}

// The system counts a file's time in ticks of 100 nanoseconds.
std::optional<FileStamp> InputFile::SteadyStamp() const { return Stamp(); }

std::size_t InputFile::ReadSome(std::uint64_t offset, std::span<char> buffer) const {
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(offset & 0xFFFFFFFFU);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32U);
  constexpr std::size_t kMostAtOnce = 1U << 30U;
  const auto wanted = static_cast<DWORD>(std::min(buffer.size(), kMostAtOnce));
  DWORD count = 0;
  if (ReadFile(state_->file.Get(), buffer.data(), wanted, &count, &place) == 0) {
    if (GetLastError() == ERROR_HANDLE_EOF) return 0;
    state_->Fail(LastSystemError());
  }
  return count;
}

}  // namespace tools
