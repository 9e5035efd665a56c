#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <cerrno>
#include <chrono>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <string_view>
#include <thread>
#include <utility>

#include "tools/Error.h"
#include "tools/files/Files.h"
#include "tools/files/FolderLock.h"
#include "tools/files/Path.h"
#include "tools/files/SystemFiles_posix.h"

namespace tools {

namespace {

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
    const auto begin = std::chrono::steady_clock::now();
    auto lastChange = begin;
    FileStamp stamp;
    while (!IsTaken(folder)) {
      const auto now = std::chrono::steady_clock::now();
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

namespace {

/// " (Prozess 17)", from the kernel's list of locks; empty where that does not name the holder.
std::string HolderOf(const FileHandle& folder) {
  struct stat status {};
  if (::fstat(folder.Get(), &status) != 0) return {};
  std::ostringstream place;
  place << std::hex << std::setfill('0') << std::setw(2) << major(status.st_dev) << ':'
        << std::setw(2) << minor(status.st_dev) << ':' << std::dec << status.st_ino;
  // 7: FLOCK  ADVISORY  WRITE 1234 00:2a:567 0 EOF
  std::ifstream locks("/proc/locks");
  for (std::string line; std::getline(locks, line);) {
    std::istringstream words(line);
    std::string number;
    std::string kind;
    std::string manner;
    std::string access;
    std::string where;
    long process = 0;
    if (words >> number >> kind >> manner >> access >> process >> where && kind == "FLOCK" &&
        process > 0 && where == place.str()) {
      return " (Prozess " + std::to_string(process) + ")";
    }
  }
  return {};
}

}  // namespace

struct FolderClaim::Mark {
  explicit Mark(int descriptor) : folder(descriptor) {}
  FileHandle folder;
};

FolderClaim::FolderClaim(std::string folder) : path_(std::move(folder)) {
  constexpr int kAttempts = 5;
  for (int attempt = 1; attempt <= kAttempts; ++attempt) {
    for (std::string& made : MakeFolder(path_)) made_.push_back(std::move(made));
    try {
      if (TryToClaim()) return;
    } catch (...) {
      mark_.reset();
      for (; !made_.empty(); made_.pop_back()) RemoveEmptyFolder(made_.back());
      throw;
    }
  }
  throw PathError("Der Ordner kann nicht gelesen werden", path_,
                  std::make_error_code(std::errc::device_or_resource_busy));
}

FolderClaim::~FolderClaim() {
  // While the mark still stands: whoever waits for the folder finds it gone, or finds it whole.
  for (; !made_.empty(); made_.pop_back()) RemoveEmptyFolder(made_.back());
}

bool FolderClaim::TryToClaim() {
  mark_ = std::make_unique<Mark>(::open(path_.c_str(), kFolderFlags));
  if (!mark_->folder.IsOpen()) {
    if (errno == ENOENT) return false;
    throw PathError("Der Ordner kann nicht gelesen werden", path_, LastSystemError());
  }
  if (::flock(mark_->folder.Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    throw Error("In den Ordner wird gerade ein anderes Setup geschrieben: " + path_ +
                    HolderOf(mark_->folder),
                std::make_error_code(std::errc::device_or_resource_busy));
  }
  return IsStillAt(mark_->folder, path_);
}

bool FolderClaim::Holds(const std::string& name) const {
  struct stat status {};
  return ::fstatat(mark_->folder.Get(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

void FolderClaim::Remove(const std::string& relative) const {
  std::string_view rest(relative);
  std::string path = path_;
  FileHandle folder(::openat(mark_->folder.Get(), ".", kFolderFlags));
  while (folder.IsOpen()) {
    const std::string name(rest.substr(0, rest.find('/')));
    path = JoinPath(path, name);
    if (name.size() == rest.size()) {
      RemoveEntry(folder.Get(), name, path);
      return;
    }
    rest.remove_prefix(name.size() + 1);
    folder.Take(::openat(folder.Get(), name.c_str(), kFolderFlags));
  }
  if (errno != ENOENT) {
    throw PathError("Der Ordner kann nicht gelöscht werden", path, LastSystemError());
  }
}

}  // namespace tools
