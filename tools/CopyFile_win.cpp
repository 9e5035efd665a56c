#include <exception>

#include "tools/Error.h"
#include "tools/Files.h"
#include "tools/TemporaryName.h"
#include "tools/WindowsApi.h"
#include "tools/WindowsPath.h"

namespace tools {

namespace {

/// Carries the progress function through the system's copy, and an error that it raised back out.
struct CopyState {
  const CopyProgress* progress = nullptr;
  std::uint64_t bytes = 0;
  std::exception_ptr raised;
};

DWORD CALLBACK OnProgress(LARGE_INTEGER, LARGE_INTEGER transferred, LARGE_INTEGER, LARGE_INTEGER,
                          DWORD, DWORD, HANDLE, HANDLE, LPVOID data) {
  auto& state = *static_cast<CopyState*>(data);
  state.bytes = static_cast<std::uint64_t>(transferred.QuadPart);
  if (!*state.progress) return PROGRESS_CONTINUE;
  try {
    (*state.progress)(state.bytes);
    return PROGRESS_CONTINUE;
  } catch (...) {
    state.raised = std::current_exception();
    return PROGRESS_CANCEL;
  }
}

CopyResult Failure(std::error_code cause) {
  return {.errorText = SystemErrorText(cause), .cause = cause};
}

}  // namespace

CopyResult CopyFile(std::string_view source, std::string_view target,
                    const CopyProgress& progress) {
  if (FolderExists(source)) return Failure(std::make_error_code(std::errc::is_a_directory));
  // The target's old content stays until the new one is whole.
  const bool replaces = FileExists(target);
  const std::wstring path = LongPath(replaces ? TemporaryNameBeside(target) : std::string(target));
  CopyState state{.progress = &progress, .raised = nullptr};
  const BOOL copied = CopyFileExW(LongPath(source).c_str(), path.c_str(), OnProgress, &state,
                                  nullptr, COPY_FILE_FAIL_IF_EXISTS);
  std::error_code cause = copied != 0 ? std::error_code() : LastSystemError();
  if (!cause) {
    // A copied write protection would keep the next build from replacing the copy.
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (replaces &&
        MoveFileExW(path.c_str(), LongPath(target).c_str(), MOVEFILE_REPLACE_EXISTING) == 0) {
      cause = LastSystemError();
    }
  }
  if (cause && (replaces || cause != std::errc::file_exists)) DeleteFileW(path.c_str());
  if (state.raised) std::rethrow_exception(state.raised);
  if (cause) return Failure(cause);
  return {.errorText = {}, .cause = {}, .bytes = state.bytes};
}

}  // namespace tools
