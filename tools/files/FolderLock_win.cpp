#include <functional>

#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/WindowsApi.h"
#include "tools/files/Files.h"
#include "tools/files/FolderLock.h"
#include "tools/files/Path.h"

namespace tools {

namespace {

constexpr std::chrono::seconds kLongestWait{60};

}  // namespace

/// A named mutex of the user's session stands for the folder; the system frees it when its holder
/// ends.
class FolderLock::Implementation {
 public:
  Implementation(const std::string& folder, std::chrono::milliseconds longestStandstill) {
    const std::size_t hash = std::hash<std::string>()(FoldCase(CanonicalPath(folder)));
    mutex_ = CreateMutexW(nullptr, FALSE, (L"Local\\Packwright-" + std::to_wstring(hash)).c_str());
    if (mutex_ == nullptr) Fail(folder);
    try {
      Wait(folder, longestStandstill);
    } catch (...) {
      CloseHandle(mutex_);
      throw;
    }
  }

  ~Implementation() {
    ReleaseMutex(mutex_);
    CloseHandle(mutex_);
  }

  Implementation(const Implementation&) = delete;
  Implementation& operator=(const Implementation&) = delete;

 private:
  // The system serves those who wait in turn.
  void Wait(const std::string& folder, std::chrono::milliseconds longestStandstill) const {
    const auto end = std::chrono::steady_clock::now() + kLongestWait;
    FileStamp stamp = StampOf(folder.empty() ? "." : folder);
    while (true) {
      const DWORD result =
          WaitForSingleObject(mutex_, static_cast<DWORD>(longestStandstill.count()));
      if (result == WAIT_OBJECT_0 || result == WAIT_ABANDONED) return;
      if (result != WAIT_TIMEOUT) Fail(folder);
      const FileStamp other = StampOf(folder.empty() ? "." : folder);
      if (other == stamp || std::chrono::steady_clock::now() > end) {
        throw PathError("Der Ordner wird gerade von einem anderen Programm beschrieben", folder,
                        std::make_error_code(std::errc::device_or_resource_busy));
      }
      stamp = other;
    }
  }

  [[noreturn]] static void Fail(const std::string& folder) {
    throw PathError("Der Ordner kann nicht gesperrt werden", folder, LastSystemError());
  }

  HANDLE mutex_ = nullptr;
};

FolderLock::FolderLock(const std::string& folder, std::chrono::milliseconds longestStandstill)
    : implementation_(std::make_unique<Implementation>(folder, longestStandstill)) {}

FolderLock::~FolderLock() = default;

}  // namespace tools
