#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <cerrno>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <string_view>
#include <utility>

#include "tools/Error.h"
#include "tools/files/FileHandle_posix.h"
#include "tools/files/Files.h"
#include "tools/files/FolderClaim.h"
#include "tools/files/FolderSteps.h"
#include "tools/files/Path.h"
#include "tools/files/RemoveEntry_posix.h"

namespace tools {

namespace {

constexpr int kFolderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

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

bool IsStillAt(const FileHandle& folder, const std::string& path) {
  struct stat held {};
  struct stat now {};
  return ::fstat(folder.Get(), &held) == 0 && ::lstat(path.c_str(), &now) == 0 &&
         held.st_dev == now.st_dev && held.st_ino == now.st_ino;
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
