// Choosing the files that an author adds to a component, and the entries that they become.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "model/FileEntries.h"
#include "pages/FileDrop.h"
#include "tools/Dialogs.h"
#include "tools/files/FindFiles.h"

namespace pages {

/// Asks for files; none when the author cancels.
[[nodiscard]] std::vector<std::string> AskForFiles(tools::Dialogs& dialogs);

/// Asks for a folder and lists its files; nothing when the author cancels. Says how many links and
/// special files are not among them. Raises tools::Error when the folder cannot be listed.
[[nodiscard]] std::optional<std::vector<std::string>> AskForFolder(tools::Dialogs& dialogs,
                                                                   tools::Subfolders subfolders);

/// The files that were dropped, and those of the folders: asks once whether with their subfolders,
/// and says what it passes over as AskForFolder does. Raises tools::Error when a folder cannot be
/// listed.
[[nodiscard]] std::vector<std::string> FilesIn(tools::Dialogs& dialogs,
                                               const DroppedPaths& dropped);

/// The message that names paths that cannot be stored, the first ten of many.
[[nodiscard]] std::string RefusalOf(const std::vector<std::string>& paths);

struct NewEntries {
  std::vector<model::ICFile> entries;
  std::vector<std::string> refused;  ///< paths that cannot be stored
};

/// Entries that install the files at these paths into a destination folder (FolderTable.h), under
/// their own names; without IDs. Refuses paths with control characters: settings cannot hold a line
/// break.
[[nodiscard]] NewEntries EntriesFor(const std::vector<std::string>& paths,
                                    std::int32_t targetFolder);

/// How many of the entries to be added name a source and a target that one of `entries` names
/// already. Relative sources are taken from `productFolder`.
[[nodiscard]] std::size_t CountListed(const model::FileEntries& entries,
                                      const std::vector<model::ICFile>& added,
                                      const std::string& productFolder);

/// What the status bar says after entries were added, `listed` of which were there already; none
/// where no files were found.
[[nodiscard]] std::string AddedText(const std::vector<model::ICFile>& added, std::size_t listed);

}  // namespace pages
