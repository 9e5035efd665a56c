// Finding files: what lies in one folder, and what a search through a folder tree finds.
#pragma once

#include <cstddef>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace tools {

/// One entry of a folder, links not followed.
struct FolderEntry {
  enum class Kind {
    File,    ///< a regular file
    Folder,  ///< a folder itself
    Other    ///< a link (on Windows: of a folder), a device, what cannot be looked at
  };
  std::string name;
  Kind kind = Kind::Other;
};
/// Everything in a folder but "." and "..", in no particular order. `failure` says why it cannot be
/// read to its end.
[[nodiscard]] std::vector<FolderEntry> ListEntries(std::string_view folder,
                                                   std::error_code& failure);

/// One entry of a folder, links followed.
struct FolderItem {
  enum class Kind {
    File,
    Folder,
    FolderLink,  ///< a link to a folder
    Special,     ///< a pipe, device or socket, or a link to one
    Dead         ///< a link that leads nowhere, or something that cannot be looked at
  };
  std::string name;
  Kind kind = Kind::File;
  bool mayBeLink = false;   ///< false if known, without an extra call, not to be a link
  std::error_code cause{};  ///< why it is Dead
};
/// Called before each entry of a listing, which can take long; what it throws (Stopped, see
/// Progress.h) ends the listing. Empty: nothing is called.
using ListingStep = std::function<void()>;
/// The same as ListEntries with links followed: those to files count as files.
[[nodiscard]] std::vector<FolderItem> ListFolder(std::string_view folder, std::error_code& failure,
                                                 const ListingStep& step = {});

/// What a search does with the subfolders of its folder.
enum class Subfolders { Skip, Search };
/// The files of `folder` whose names match `pattern`, as full paths ("folder" with a separator
/// ensured, then the name), as Windows matches them on every machine: "*" and "?" stand for
/// characters, "*.*" matches every file, case does not count. A folder's own files come in byte
/// order of their names, then, where they are searched too, its subfolders in byte order, each in
/// turn. Links to files count as files; links to folders are not followed. A folder that does not
/// exist has no files; one that cannot be read raises Error (SearchFiles goes on).
[[nodiscard]] std::vector<std::string> FindFiles(std::string_view folder, std::string_view pattern,
                                                 Subfolders subfolders);
/// True when `pattern` matches the file name by the rules of FindFiles.
[[nodiscard]] bool MatchesPattern(std::string_view name, std::string_view pattern);

/// What SearchFiles looks at.
struct FileSearch {
  bool includeSubfolders = false;
  /// This folder, however a path spells it, is passed over with all that lies in it. Empty: none.
  std::string leaveOut{};
  /// Passes over temporary files and folders of this program (TemporaryFiles.h).
  bool skipTemporary = false;
  /// The search ends when it has found so many files.
  std::size_t atMost = std::numeric_limits<std::size_t>::max();
  /// Called often, with each entry of a folder; what it throws ends the search.
  ListingStep step{};
  /// Called once for each entry of a folder as it is listed, before `step`.
  ListingStep listed{};
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
/// The search of FindFiles for callers who must know what it could not see: it goes on past what
/// it cannot read. A folder that does not exist has no files.
[[nodiscard]] FoundFiles SearchFiles(std::string_view folder, std::string_view pattern,
                                     const FileSearch& search);

/// Raises Error naming the first folder that a search could not read.
void RequireAllRead(const FoundFiles& found);

}  // namespace tools
