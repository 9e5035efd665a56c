#include <functional>

#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/WindowsApi.h"
#include "tools/files/FolderLock.h"
#include "tools/files/Path.h"

namespace tools {

namespace {

constexpr DWORD kLongestWaitMilliseconds = 5000;

}  // namespace

/// A named mutex of the user's session stands for the folder; the system frees it when its holder
/// ends.
class FolderLock::Implementation {
 public:
  explicit Implementation(const std::string& folder) {
    const std::size_t hash = std::hash<std::string>()(FoldCase(CanonicalPath(folder)));
    mutex_ = CreateMutexW(nullptr, FALSE, (L"Local\\Packwright-" + std::to_wstring(hash)).c_str());
    if (mutex_ == nullptr) return;
    if (WaitForSingleObject(mutex_, kLongestWaitMilliseconds) == WAIT_TIMEOUT) {
      CloseHandle(mutex_);
      throw PathError("Der Ordner wird gerade von einem anderen Programm beschrieben", folder,
                      std::make_error_code(std::errc::device_or_resource_busy));
    }
  }

  ~Implementation() {
    if (mutex_ == nullptr) return;
    ReleaseMutex(mutex_);
    CloseHandle(mutex_);
  }

  Implementation(const Implementation&) = delete;
  Implementation& operator=(const Implementation&) = delete;

 private:
  HANDLE mutex_ = nullptr;
};

FolderLock::FolderLock(const std::string& folder)
    : implementation_(std::make_unique<Implementation>(folder)) {}

FolderLock::~FolderLock() = default;

}  // namespace tools
