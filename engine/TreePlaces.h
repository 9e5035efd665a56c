// Where the files of a folder tree go, and which of them meet there.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "model/ICFile.h"

namespace engine {

/// The name under which a tree stores an entry's file: destination folder's macro name, target
/// subfolder and the source's file name, joined by "\".
[[nodiscard]] std::string TreeStoredName(const model::ICFile& entry, std::string_view sourcePath);

/// What becomes of a file in the tree.
struct TreePlace {
  enum class Fault {
    None,
    OwnName,        ///< the name, or a folder's on the way, is one of the build's own files'
    FileInTheWay,   ///< a folder on the way bears the name of a stored file
    FolderInTheWay  ///< a folder of the tree bears the file's name
  };

  Fault fault = Fault::None;
  std::string path;  ///< relative to the output folder, with the machine's separators
  /// The other source that was stored there before, or that is in the way; empty when there is
  /// none.
  std::string_view other;
  std::string key{};          ///< for Release: the place taken; empty for none
  std::string_view before{};  ///< for Release: the source that had it before
};

/// Gives out the places of a tree. The setup is used on Windows: names that differ only in case, or
/// in dots and blanks at their end, are one, and keep the spelling that came first.
class TreePlaces {
 public:
  /// `ownNames`: names at the top of the tree that are kept for the build itself.
  explicit TreePlaces(const std::vector<std::string>& ownNames);

  /// The place of a file; where it meets another source's, the later one stays. `sourcePath` must
  /// live as long as this object. Raises tools::Error for a name that leads out of the tree.
  [[nodiscard]] TreePlace Take(const model::ICFile& entry, std::string_view sourcePath);

  /// Gives back what Take gave last: the file could not be stored.
  void Release(const TreePlace& place);

 private:
  struct Folder {
    TreePlace::Fault fault = TreePlace::Fault::None;
    std::string_view other;
    std::string path;  ///< relative, with the machine's separators
    std::string key;   ///< its parts in one spelling, each behind a "\"
  };
  struct File {
    std::string_view source;
    std::string name;
  };

  [[nodiscard]] const Folder& FolderAt(const std::string& scriptFolder);
  [[nodiscard]] Folder Enter(const std::string& scriptFolder);

  std::unordered_set<std::string> ownKeys_;
  std::unordered_map<std::string, Folder> folders_;  ///< by the folder as a script writes it
  std::unordered_map<std::string, std::string>
      spelled_;  ///< folder key to its last part's spelling
  std::unordered_map<std::string, File> files_;
};

}  // namespace engine
