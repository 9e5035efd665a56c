#include <array>
#include <string_view>
#include <utility>

#include "tools/Error.h"
#include "tools/WindowsApi.h"
#include "tools/files/FileHandle_win.h"
#include "tools/files/Files.h"
#include "tools/files/FolderClaim.h"
#include "tools/files/FolderSteps.h"
#include "tools/files/Path.h"
#include "tools/files/WindowsPath.h"

namespace tools {

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

void FolderClaim::Remove(const std::string& relative) const {
  RemoveFolderTree(JoinPath(path_, relative));
}

}  // namespace tools
