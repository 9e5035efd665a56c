// The registry of a Wine prefix, for browsing.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tools/files/Files.h"
#include "tools/registry/Registry.h"
#include "tools/registry/WineRegistryFile.h"

namespace tools {

/// Tells the names in a Wine prefix's files: system.reg holds HKEY_LOCAL_MACHINE (its
/// Software\Classes is HKEY_CLASSES_ROOT), user.reg HKEY_CURRENT_USER, userdef.reg the key
/// ".Default" of HKEY_USERS. A file is parsed at the first question and again when it has changed.
/// What is missing or unreadable has no names.
class WineRegistry {
 public:
  explicit WineRegistry(const std::string& prefixFolder);

  [[nodiscard]] std::vector<std::string> SubkeyNames(RegistryRoot root, std::string_view keyPath);
  /// The names of a key's values, without its default value.
  [[nodiscard]] std::vector<std::string> ValueNames(RegistryRoot root, std::string_view keyPath);

 private:
  struct CachedFile {
    FileStamp stamp;
    WineRegistryFile keys{""};
  };
  /// A key by the file that holds it.
  struct Place {
    std::string fileName;  ///< empty: no file holds the key
    std::string keyPath;   ///< inside the file
  };

  static Place Locate(RegistryRoot root, std::string_view keyPath);
  const WineRegistryFile& Fetch(const std::string& fileName);

  std::string folder_;
  std::map<std::string, CachedFile> files_;  ///< by file name
};

}  // namespace tools
