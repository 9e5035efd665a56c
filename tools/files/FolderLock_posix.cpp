#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <chrono>
#include <thread>

#include "tools/Error.h"
#include "tools/files/FileHandle_posix.h"
#include "tools/files/Files.h"
#include "tools/files/FolderLock.h"

namespace tools {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kLongestWait{60};
// Short beside a save: who waits finds the gap between two saves of a program that makes many.
constexpr std::chrono::milliseconds kPause{1};

}  // namespace

/// The lock is on the folder itself and ends with its descriptor, so that nothing stays behind.
class FolderLock::Implementation {
 public:
  Implementation(const std::string& folder, std::chrono::milliseconds longestStandstill)
      : handle_(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (!handle_.IsOpen()) Fail(folder);
    const auto begin = Clock::now();
    auto lastChange = begin;
    FileStamp stamp;
    while (!IsTaken(folder)) {
      const auto now = Clock::now();
      if (const FileStamp other = StampOf(folder.empty() ? "." : folder); other != stamp) {
        stamp = other;
        lastChange = now;
      }
      if (now - lastChange > longestStandstill || now - begin > kLongestWait) {
        throw PathError("Der Ordner wird gerade von einem anderen Programm beschrieben", folder,
                        std::make_error_code(std::errc::device_or_resource_busy));
      }
      std::this_thread::sleep_for(kPause);
    }
  }

 private:
  /// False while another program holds the lock.
  bool IsTaken(const std::string& folder) {
    if (::flock(handle_.Get(), LOCK_EX | LOCK_NB) == 0) return true;
    if (errno != EWOULDBLOCK && errno != EINTR) Fail(folder);
    return false;
  }

  [[noreturn]] static void Fail(const std::string& folder) {
    throw PathError("Der Ordner kann nicht gesperrt werden", folder, LastSystemError());
  }

  FileHandle handle_;
};

FolderLock::FolderLock(const std::string& folder, std::chrono::milliseconds longestStandstill)
    : implementation_(std::make_unique<Implementation>(folder, longestStandstill)) {}

FolderLock::~FolderLock() = default;

}  // namespace tools
