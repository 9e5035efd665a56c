#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <chrono>
#include <thread>

#include "tools/Error.h"
#include "tools/files/FileHandle_posix.h"
#include "tools/files/FolderLock.h"

namespace tools {

namespace {

constexpr std::chrono::seconds kLongestWait{5};
constexpr std::chrono::milliseconds kPause{5};

}  // namespace

/// The lock is on the folder itself and ends with its descriptor, so that nothing stays behind.
class FolderLock::Implementation {
 public:
  explicit Implementation(const std::string& folder)
      : handle_(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (!handle_.IsOpen()) return;
    const auto end = std::chrono::steady_clock::now() + kLongestWait;
    while (::flock(handle_.Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
      if (std::chrono::steady_clock::now() > end) {
        throw PathError("Der Ordner wird gerade von einem anderen Programm beschrieben", folder,
                        std::make_error_code(std::errc::device_or_resource_busy));
      }
      std::this_thread::sleep_for(kPause);
    }
  }

 private:
  FileHandle handle_;
};

FolderLock::FolderLock(const std::string& folder)
    : implementation_(std::make_unique<Implementation>(folder)) {}

FolderLock::~FolderLock() = default;

}  // namespace tools
