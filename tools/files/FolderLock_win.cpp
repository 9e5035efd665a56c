#include <array>
#include <functional>
#include <string_view>
#include <utility>

#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/WindowsApi.h"
#include "tools/files/Files.h"
#include "tools/files/FolderLock.h"
#include "tools/files/Path.h"
#include "tools/files/SystemFiles_win.h"

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

namespace {

constexpr std::string_view kMarkName = ".packwright-0000000000000000.tmp";

/// " (Prozess 17)", from the file that its holder keeps open; empty where that cannot be read.
std::string HolderOf(const std::wstring& mark) {
  const FileHandle file(CreateFileW(mark.c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  std::array<char, 16> text{};
  DWORD size = 0;
  if (!file.IsOpen() ||
      ReadFile(file.Get(), text.data(), static_cast<DWORD>(text.size()), &size, nullptr) == 0 ||
      size == 0) {
    return {};
  }
  return " (Prozess " + std::string(text.data(), size) + ")";
}

}  // namespace

struct FolderClaim::Mark {
  FileHandle file;
};

FolderClaim::FolderClaim(std::string folder) : path_(std::move(folder)) {
  made_ = MakeFolder(path_);
  try {
    TryToClaim();
  } catch (...) {
    for (; !made_.empty(); made_.pop_back()) RemoveEmptyFolder(made_.back());
    throw;
  }
}

FolderClaim::~FolderClaim() {
  mark_.reset();
  for (; !made_.empty(); made_.pop_back()) RemoveEmptyFolder(made_.back());
}

// The system removes the file with its last handle. While it is open, neither the folder nor one
// above it can be renamed.
bool FolderClaim::TryToClaim() {
  const std::wstring mark = LongPath(JoinPath(path_, kMarkName));
  mark_.reset(new Mark{FileHandle(
      CreateFileW(mark.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                  FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr))});
  if (!mark_->file.IsOpen()) {
    const DWORD error = GetLastError();
    if (error == ERROR_SHARING_VIOLATION) {
      throw Error(
          "In den Ordner wird gerade ein anderes Setup geschrieben: " + path_ + HolderOf(mark),
          std::make_error_code(std::errc::device_or_resource_busy));
    }
    throw PathError("In den Ausgabeordner kann nicht geschrieben werden", path_,
                    {static_cast<int>(error), std::system_category()});
  }
  const std::string process = std::to_string(GetCurrentProcessId());
  DWORD written = 0;
  // Without its number the holder is only not named.
  WriteFile(mark_->file.Get(), process.data(), static_cast<DWORD>(process.size()), &written,
            nullptr);
  return true;
}

bool FolderClaim::Holds(const std::string& name) const {
  return GetFileAttributesW(LongPath(JoinPath(path_, name)).c_str()) != INVALID_FILE_ATTRIBUTES;
}

void FolderClaim::Remove(const std::string& relative) const {
  RemoveFolderTree(JoinPath(path_, relative));
}

}  // namespace tools
