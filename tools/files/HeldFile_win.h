// Windows only: trying again while another program (a virus scanner, an indexer) holds a file open.
#pragma once

#include "tools/WindowsApi.h"

namespace tools {

/// What is done to the file. Of one that is read, only a refused sharing tells that it is held; of
/// one that is replaced, moved or deleted, the system also says "access denied" (while it is mapped
/// or waits to be deleted) and, of a folder, "not empty" (while a file in it waits).
enum class HeldWhen { Reading, Changing };

[[nodiscard]] inline bool IsHeldByOthers(DWORD error, HeldWhen when) {
  if (error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION) return true;
  return when == HeldWhen::Changing &&
         (error == ERROR_ACCESS_DENIED || error == ERROR_DIR_NOT_EMPTY);
}

/// Calls `attempt` until it returns true, again while the last error says that the file is held and
/// `mayRetry` allows it: for one second when reading, for two when changing. Returns 0 or the last
/// error.
template <typename Attempt, typename MayRetry>
[[nodiscard]] DWORD RetryWhileHeld(HeldWhen when, const Attempt& attempt,
                                   const MayRetry& mayRetry) {
  constexpr DWORD kPauseMilliseconds = 50;
  const int attempts = when == HeldWhen::Reading ? 20 : 40;
  for (int number = 1;; ++number) {
    if (attempt()) return 0;
    const DWORD error = GetLastError();
    if (!IsHeldByOthers(error, when) || number == attempts || !mayRetry()) return error;
    Sleep(kPauseMilliseconds);
  }
}

template <typename Attempt>
[[nodiscard]] DWORD RetryWhileHeld(HeldWhen when, const Attempt& attempt) {
  return RetryWhileHeld(when, attempt, [] { return true; });
}

}  // namespace tools
