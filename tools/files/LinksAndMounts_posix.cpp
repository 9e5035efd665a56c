#include <fcntl.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

#include "tools/files/LinksAndMounts.h"
#include "tools/files/Path.h"

namespace tools {

namespace {

/// The kernel writes blanks, line breaks and backslashes as "\\" and three octal digits.
std::string Decoded(const std::string& text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 3 < text.size()) {
      decoded += static_cast<char>(std::stoi(text.substr(i + 1, 3), nullptr, 8));
      i += 3;
    } else {
      decoded += text[i];
    }
  }
  return decoded;
}

/// `path` with its beginning `from` replaced by `to`; both are folders, and "/" is one of them.
std::string Moved(const std::string& path, const std::string& from, const std::string& to) {
  std::string rest = path.substr(from == "/" ? 0 : from.size());
  if (rest == "/") rest.clear();
  if (rest.empty()) return to;
  return to == "/" ? rest : to + rest;
}

}  // namespace

std::string LinkTarget(std::string_view path) {
  std::error_code failure;
  if (!std::filesystem::is_symlink(ToPath(path), failure)) return std::string(path);
  const std::filesystem::path target = std::filesystem::canonical(ToPath(path), failure);
  return failure ? std::string(path) : FromPath(target);
}

bool IsMountRoot(const std::string& folder) {
  struct statx status {};
  if (::statx(AT_FDCWD, folder.c_str(), 0, STATX_TYPE, &status) != 0) return false;
  if ((status.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0) {
    return (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
  }
  // Kernels before 5.8 do not know that attribute.
  struct stat own {};
  struct stat above {};
  return ::stat(folder.c_str(), &own) == 0 && ::stat((folder + "/..").c_str(), &above) == 0 &&
         (own.st_dev != above.st_dev || own.st_ino == above.st_ino);
}

MountTable::MountTable() {
  std::ifstream table("/proc/self/mountinfo");
  for (std::string line; std::getline(table, line);) {
    // 36 35 98:0 /root /place options ...
    std::istringstream words(line);
    std::string number;
    std::string parent;
    Mount mount;
    if (words >> number >> parent >> mount.volume >> mount.root >> mount.place) {
      mount.root = Decoded(mount.root);
      mount.place = Decoded(mount.place);
      mounts_.push_back(std::move(mount));
    }
  }
}

std::vector<std::string> MountTable::OtherPathsOf(const std::string& path) const {
  const Mount* own = nullptr;
  for (const Mount& mount : mounts_) {
    // Of two in one place the later one is seen.
    if (IsSameOrBelow(path, mount.place) &&
        (own == nullptr || mount.place.size() >= own->place.size())) {
      own = &mount;
    }
  }
  std::vector<std::string> others;
  if (own == nullptr) return others;
  const std::string onVolume = Moved(path, own->place, own->root);
  for (const Mount& mount : mounts_) {
    if (&mount != own && mount.volume == own->volume && IsSameOrBelow(onVolume, mount.root)) {
      others.push_back(Moved(onVolume, mount.root, mount.place));
    }
  }
  return others;
}

}  // namespace tools
