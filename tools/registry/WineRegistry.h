// The text files in which Wine keeps its registry.
//
// The form, as Wine 8 writes it ("WINE REGISTRY Version 2"): after a first line of that text, each
// key is a line "[PATH] TIME" followed by its values, "NAME"=DATA, or @=DATA for the default value.
// Lines that begin with ";" or "#" are notes. In paths and names "\" begins an escape: \\ \" \[ \],
// the letters of C (\n, \t, ..., \e for ESC), up to three octal digits, and \x with up to four
// hexadecimal digits of a UTF-16 unit. Keys of a path are separated by an escaped backslash. Data
// continues on the next line after a backslash at its end. A key that has only subkeys need not
// have a line of its own.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tools/files/Files.h"
#include "tools/registry/Registry.h"

namespace tools {

/// The keys and value names of one such file, indexed once for quick questions. A text of another
/// form has no keys.
class WineRegistryFile {
 public:
  explicit WineRegistryFile(std::string content);

  /// The names of the keys directly below `keyPath` (the top level for an empty path), as they are
  /// written in the file, in the order of their folded names.
  [[nodiscard]] std::vector<std::string> SubkeyNames(std::string_view keyPath) const;

  /// The names of a key's values in the file's order, without its default value.
  [[nodiscard]] std::vector<std::string> ValueNames(std::string_view keyPath) const;

 private:
  struct Key {
    std::string order;   ///< folded path with a separator that sorts before every other character
    std::string path;    ///< as the file spells it
    std::size_t values;  ///< where the line after the key's own begins in the content
  };

  void AddKey(std::string_view line, std::size_t values);
  [[nodiscard]] std::vector<Key>::const_iterator LowerBound(std::string_view order) const;

  std::string content_;
  std::vector<Key> keys_;  ///< sorted by `order`
};

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
