// The targets of an installation script: the folders that the runtime knows by name, and paths in
// them taken apart.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace setup {

// The same table as the model's, held a second time so that reading a setup shares nothing with
// writing it.

inline constexpr std::int32_t kCustomFolder = 2004;  ///< the target subfolder is the whole path
inline constexpr std::string_view kTemporaryFolder = "TempPath";
inline constexpr std::string_view kSetupFolder = "SrcPath";  ///< not a target

/// True when files can be installed to %name%.
[[nodiscard]] bool IsFolderName(std::string_view name);

/// The name of a target folder by its number in a product, without percent signs; empty for an
/// unknown number.
[[nodiscard]] std::string_view FolderName(std::int32_t number);

/// A target taken apart.
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
