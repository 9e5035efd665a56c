// A target of an installation script, taken apart.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace setup {

struct TargetPath {
  enum class Kind {
    Folder,  ///< %Name%\a\b: `top` is the name
    Drive,   ///< C:\a: `top` is the letter
    Root,    ///< neither: `top` is "root"
  };
  Kind kind = Kind::Root;
  std::string top;
  std::vector<std::string>
      parts;               ///< what follows, without "." and ".."; the last is the file's name
  bool climbs = false;     ///< ".." was taken out: as a file system would, but never above `top`
  bool climbsOut = false;  ///< one of them would have led above it
};

/// Takes a path apart at "\" and "/".
[[nodiscard]] TargetPath SplitTarget(std::string_view path);

/// Why the runtime cannot install to this path (German): a folder it does not know, a name that
/// Windows does not allow. Empty when it can.
[[nodiscard]] std::string ObjectionTo(const TargetPath& target);

/// The path as one text that is the same for all spellings that mean one file under Windows.
[[nodiscard]] std::string TargetKey(std::string_view path);

/// `path` without `folder` ("%Name%") and "\" before it; empty when it does not lie there.
[[nodiscard]] std::string_view BelowFolder(std::string_view path, std::string_view folder);

}  // namespace setup
