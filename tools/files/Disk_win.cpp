#include <algorithm>
#include <utility>

#include "tools/Error.h"
#include "tools/WindowsApi.h"
#include "tools/files/Disk.h"
#include "tools/files/LinksAndMounts.h"
#include "tools/files/Path.h"
#include "tools/files/SystemFiles_win.h"

namespace tools {

namespace {

class SystemOutputFile : public OutputFile {
 public:
  SystemOutputFile(std::string target, HANDLE handle) : target_(std::move(target)), file_(handle) {}

  void Write(std::string_view bytes) override {
    WriteBytes(end_, bytes);
    end_ += bytes.size();
  }

  void WriteAt(std::uint64_t offset, std::string_view bytes) override { WriteBytes(offset, bytes); }

  void Truncate(std::uint64_t size) override {
    LARGE_INTEGER position{};
    position.QuadPart = static_cast<LONGLONG>(size);
    if (SetFilePointerEx(file_.Get(), position, nullptr, FILE_BEGIN) == 0 ||
        SetEndOfFile(file_.Get()) == 0) {
      Fail();
    }
    end_ = size;
  }

  void Sync() override {
    if (FlushFileBuffers(file_.Get()) == 0) Fail();
  }

  void Close() override {
    if (!file_.Close()) Fail();
  }

 private:
  void WriteBytes(std::uint64_t offset, std::string_view bytes) {
    constexpr std::size_t kMostPerCall = std::size_t{1} << 30U;
    while (!bytes.empty()) {
      OVERLAPPED place{};
      place.Offset = static_cast<DWORD>(offset);
      place.OffsetHigh = static_cast<DWORD>(offset >> 32U);
      DWORD count = 0;
      const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kMostPerCall));
      if (WriteFile(file_.Get(), bytes.data(), wanted, &count, &place) == 0) Fail();
      bytes.remove_prefix(count);
      offset += count;
    }
  }

  [[noreturn]] void Fail() const {
    throw PathError("Die Datei kann nicht geschrieben werden", target_, LastSystemError());
  }

  std::string target_;  ///< what errors name
  FileHandle file_;
  std::uint64_t end_ = 0;
};

/// True for what no waiting makes replaceable.
bool IsProtected(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES &&
         (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0;
}

}  // namespace

std::unique_ptr<OutputFile> SystemDisk::CreateNew(const std::string& path,
                                                  const std::string& target) {
  const HANDLE handle = CreateFileW(LongPath(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                    CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    throw PathError("Die Datei kann nicht angelegt werden", target, LastSystemError());
  }
  return std::make_unique<SystemOutputFile>(target, handle);
}

void SystemDisk::Replace(const std::string& from, const std::string& to) {
  const std::wstring source = LongPath(from);
  const std::wstring target = LongPath(to);
  const DWORD error = RetryWhileHeld(
      HeldWhen::Changing,
      [&] {
        return MoveFileExW(source.c_str(), target.c_str(),
                           MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
      },
      [&] { return !IsProtected(target); });
  if (error != 0) {
    throw PathError("Die Datei kann nicht ersetzt werden", to,
                    {static_cast<int>(error), std::system_category()});
  }
}

// NTFS orders its own metadata; folders cannot be flushed through the Windows interface.
void SystemDisk::SyncFolder(const std::string&) noexcept {}

void SystemDisk::Discard(const std::string& path) noexcept { DeleteFileW(LongPath(path).c_str()); }

}  // namespace tools
