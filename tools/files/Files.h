// Files and folders: the operations of the support layer on paths (UTF-8, absolute or relative to
// the current folder).
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "tools/Clock.h"

namespace tools {

/// What a path leads to, links followed.
enum class PathKind { Absent, File, Folder, Other };

/// `failure` receives the system's reason where it cannot tell (no right to search a folder on the
/// way, a defective disk); the result is then Absent.
[[nodiscard]] PathKind KindOf(std::string_view path, std::error_code& failure);

/// True for a regular file (or a link to one). Raises Error when the system cannot tell.
[[nodiscard]] bool FileExists(std::string_view path);
/// True for a folder (or a link to one). Raises Error when the system cannot tell.
[[nodiscard]] bool FolderExists(std::string_view path);

/// Creates the folder and its missing parents; a folder that exists is fine. Returns those that it
/// created, the outermost first. Raises Error naming the one that failed; none is then left over.
std::vector<std::string> MakeFolder(std::string_view path);

/// Creates one folder, whose parent must be there. Returns the system's reason when it cannot.
[[nodiscard]] std::error_code CreateOneFolder(const std::string& path);
/// Removes an empty folder. Returns the system's reason when it cannot.
std::error_code RemoveEmptyFolder(const std::string& path) noexcept;
/// False when the system would refuse to make a file in the folder, or the folder itself where it
/// is missing. True is no promise: making it can still fail.
[[nodiscard]] bool CanMakeFilesIn(std::string_view folder);

/// Creates the folder `relative` (the machine's separators, no "..") below `root` with its missing
/// parents; none of them, `root` included, may be a link. Raises Error.
void MakeFolderBelow(std::string_view root, std::string_view relative);

/// Deletes the folder with all files and subfolders, write-protected ones of this user too; a link
/// is removed itself, never followed, and a mounted file system is not entered. A folder that does
/// not exist is fine. Raises Error naming the first path that stayed; what comes after it stays
/// too.
void RemoveFolderTree(std::string_view path);

/// Renames a folder, on the same volume; `to` must not exist. Raises Error.
void MoveFolder(std::string_view from, std::string_view to);

/// Deletes one file; a file that does not exist is fine. Raises Error.
void DeleteFile(std::string_view path);

/// The outcome of a copy: success, or the text that says why it failed.
struct CopyResult {
  std::string errorText;    ///< empty on success
  std::error_code cause;    ///< the system's reason, where there is one
  std::uint64_t bytes = 0;  ///< bytes copied

  [[nodiscard]] bool Succeeded() const { return errorText.empty(); }
};

/// Called between the chunks of a long copy; may raise an error to stop it.
using CopyProgress = std::function<void(std::uint64_t bytesSoFar)>;

/// Copies one regular file, overwriting the target, and gives the target the source's modification
/// time. A source that another program changes meanwhile is copied once more; when it changes again
/// the copy fails (kChangesMeanwhile). A copy that fails leaves no partial target behind.
[[nodiscard]] CopyResult CopyFile(std::string_view source, std::string_view target,
                                  const CopyProgress& progress = {});

/// Size in bytes and modification time; what tells whether a file has changed since it was read.
struct FileStamp {
  bool exists = false;
  std::uint64_t size = 0;  ///< bytes
  FileTime modified{};
  std::uint64_t device = 0;    ///< volume and
  std::uint64_t identity = 0;  ///< file number on it: a replaced file has another one

  bool operator==(const FileStamp&) const = default;
};
/// The stamp of what is at `path`; one with `exists` false when there is nothing. Raises Error when
/// the system cannot tell.
[[nodiscard]] FileStamp StampOf(std::string_view path);

/// Sets the modification time of a file or folder. Raises Error.
void SetModificationTime(std::string_view path, FileTime time);
/// The same for a folder with all files and subfolders in it; links are not followed.
void SetTreeTime(const std::string& folder, FileTime time);

}  // namespace tools
