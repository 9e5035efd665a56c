#include "tools/registry/WineRegistry.h"

#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/files/Path.h"

namespace tools {

namespace {

constexpr const char* kDefaultUserFile = "userdef.reg";
constexpr std::string_view kDefaultUserKey = ".Default";

}  // namespace

WineRegistry::WineRegistry(const std::string& prefixFolder) : folder_(prefixFolder) {}

WineRegistry::Place WineRegistry::Locate(RegistryRoot root, std::string_view keyPath) {
  keyPath = TrimKeyPath(keyPath);
  switch (root) {
    case RegistryRoot::LocalMachine:
      return {"system.reg", std::string(keyPath)};
    case RegistryRoot::ClassesRoot:
      return {"system.reg", std::string("Software\\Classes\\").append(keyPath)};
    case RegistryRoot::CurrentUser:
      return {"user.reg", std::string(keyPath)};
    case RegistryRoot::Users: {
      const std::string_view user = keyPath.substr(0, keyPath.find('\\'));
      if (!EqualIgnoringCase(user, kDefaultUserKey)) return {};
      return {kDefaultUserFile, std::string(keyPath.substr(user.size()))};
    }
    default:
      return {};
  }
}

const WineRegistryFile& WineRegistry::Fetch(const std::string& fileName) {
  CachedFile& file = files_[fileName];
  const std::string path = JoinPath(folder_, fileName);
  try {
    const FileStamp stamp = StampOf(path);
    if (stamp == file.stamp) return file.keys;
    file.keys = WineRegistryFile(stamp.exists ? ReadWholeFile(path) : std::string());
    file.stamp = stamp;
  } catch (const Error&) {
    // Browsing offers what is there; a file that cannot be read offers nothing, until it can.
    file = {};
  }
  return file.keys;
}

std::vector<std::string> WineRegistry::SubkeyNames(RegistryRoot root, std::string_view keyPath) {
  if (root == RegistryRoot::Users && TrimKeyPath(keyPath).empty()) {
    std::error_code ignored;
    if (KindOf(JoinPath(folder_, kDefaultUserFile), ignored) != PathKind::File) return {};
    return {std::string(kDefaultUserKey)};
  }
  const Place place = Locate(root, keyPath);
  if (place.fileName.empty()) return {};
  return Fetch(place.fileName).SubkeyNames(place.keyPath);
}

std::vector<std::string> WineRegistry::ValueNames(RegistryRoot root, std::string_view keyPath) {
  const Place place = Locate(root, keyPath);
  if (place.fileName.empty()) return {};
  return Fetch(place.fileName).ValueNames(place.keyPath);
}

}  // namespace tools
