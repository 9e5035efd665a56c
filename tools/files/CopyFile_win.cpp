#include <vector>

#include "tools/Error.h"
#include "tools/WindowsApi.h"
#include "tools/files/Files.h"
#include "tools/files/SystemFiles_win.h"
#include "tools/files/TemporaryFiles.h"

namespace tools {

namespace {

constexpr DWORD kBufferBytes = DWORD{1} << 20U;

CopyResult Failure(std::error_code cause) {
  return {.errorText = SystemErrorText(cause), .cause = cause};
}

/// Copies what the file holds. The system's own copy would also take over a write protection, which
/// keeps the next build from replacing the copy, and the mark that a file came from the network.
bool CopyContent(HANDLE source, HANDLE target, std::uint64_t& copied,
                 const CopyProgress& progress) {
  std::vector<char> buffer(kBufferBytes);
  while (true) {
    DWORD count = 0;
    if (ReadFile(source, buffer.data(), kBufferBytes, &count, nullptr) == 0) return false;
    if (count == 0) return true;
    DWORD written = 0;
    if (WriteFile(target, buffer.data(), count, &written, nullptr) == 0) return false;
    copied += written;
    if (progress) progress(copied);
  }
}

bool StampOfOpen(HANDLE file, FileStamp& stamp) {
  BY_HANDLE_FILE_INFORMATION information{};
  if (GetFileInformationByHandle(file, &information) == 0) return false;
  stamp = StampFrom(information);
  return true;
}

bool GoToBegin(HANDLE file) {
  return SetFilePointerEx(file, LARGE_INTEGER{}, nullptr, FILE_BEGIN) != 0;
}

/// Copies the source as it is at one moment.
std::error_code CopyUnchanged(HANDLE source, HANDLE target, std::uint64_t& copied,
                              const CopyProgress& progress) {
  constexpr int kTries = 2;
  for (int i = 0; i < kTries; ++i) {
    copied = 0;
    FileStamp before;
    FileStamp after;
    const bool isCopied = GoToBegin(source) && GoToBegin(target) && SetEndOfFile(target) != 0 &&
                          StampOfOpen(source, before) &&
                          CopyContent(source, target, copied, progress) &&
                          StampOfOpen(source, after);
    if (!isCopied) return LastSystemError();
    if (before == after) return {};
  }
  return std::make_error_code(kChangesMeanwhile);
}

bool CopyTime(HANDLE source, HANDLE target) {
  FILETIME modified{};
  return GetFileTime(source, nullptr, nullptr, &modified) != 0 &&
         SetFileTime(target, nullptr, nullptr, &modified) != 0;
}

/// Copies into a file that does not exist yet, and removes it again when that fails.
CopyResult CopyToNew(const FileHandle& source, const std::string& target,
                     const CopyProgress& progress) {
  const std::wstring path = LongPath(target);
  FileHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                              FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!file.IsOpen()) return Failure(LastSystemError());
  CopyResult result;
  try {
    std::error_code cause = CopyUnchanged(source.Get(), file.Get(), result.bytes, progress);
    if (!cause && (!CopyTime(source.Get(), file.Get()) || !file.Close())) {
      cause = LastSystemError();
    }
    if (!cause) return result;
    result = Failure(cause);
  } catch (...) {
    if (file.IsOpen()) (void)file.Close();
    DeleteFileW(path.c_str());
    throw;
  }
  if (file.IsOpen()) (void)file.Close();
  DeleteFileW(path.c_str());
  return result;
}

}  // namespace

CopyResult CopyFile(std::string_view source, std::string_view target,
                    const CopyProgress& progress) {
  std::error_code ignored;
  if (KindOf(source, ignored) == PathKind::Folder)
    return Failure(std::make_error_code(std::errc::is_a_directory));
  FileHandle file(CreateFileW(LongPath(source).c_str(), GENERIC_READ,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!file.IsOpen()) return Failure(LastSystemError());
  const PathKind targetKind = KindOf(target, ignored);
  if (targetKind == PathKind::Folder) return Failure(std::make_error_code(std::errc::file_exists));
  if (targetKind == PathKind::Absent) return CopyToNew(file, std::string(target), progress);

  // The target's old content stays until the new one is whole.
  const std::string temporary = TemporaryNameBeside(target);
  const CopyResult result = CopyToNew(file, temporary, progress);
  // An open file cannot be replaced, should source and target be the same.
  (void)file.Close();
  if (result.Succeeded() && MoveFileExW(LongPath(temporary).c_str(), LongPath(target).c_str(),
                                        MOVEFILE_REPLACE_EXISTING) == 0) {
    const CopyResult failure = Failure(LastSystemError());
    DeleteFileW(LongPath(temporary).c_str());
    return failure;
  }
  return result;
}

}  // namespace tools
