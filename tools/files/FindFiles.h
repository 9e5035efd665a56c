// Searching a folder tree for files, for callers who must know what the search could not see.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "tools/files/FolderListing.h"

namespace tools {

struct FileSearch {
  bool includeSubfolders = false;
  /// This folder, however a path spells it, is passed over with all that lies in it. Empty: none.
  std::string leaveOut{};
  /// Passes over what this program keeps on disk for a moment (TemporaryName.h).
  bool skipTemporary = false;
  /// The search ends when it has found so many files.
  std::size_t atMost = std::numeric_limits<std::size_t>::max();
  /// Called often, with each entry of a folder; what it throws ends the search.
  ListingStep step{};
};

/// A place that a search could not look into.
struct UnseenPath {
  std::string path;
  std::error_code cause;
};

struct FoundFiles {
  std::vector<std::string> paths;  ///< full paths, in the order that FindFiles gives
  std::vector<std::string> links;  ///< a superset of the links among `paths`
  std::vector<UnseenPath> unreadFolders;
  std::vector<UnseenPath> deadLinks;      ///< matching names that lead to no file or folder
  std::vector<std::string> specialFiles;  ///< matching names of pipes, devices and sockets
  /// Links to folders, where a search looks into subfolders: it does not follow them.
  std::vector<std::string> folderLinks;
};

/// The search of FindFiles (Files.h), which goes on past what it cannot read. A folder that does
/// not exist has no files.
[[nodiscard]] FoundFiles SearchFiles(std::string_view folder, std::string_view pattern,
                                     const FileSearch& search);

}  // namespace tools
