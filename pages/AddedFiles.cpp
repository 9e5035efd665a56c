#include "pages/AddedFiles.h"

#include <algorithm>
#include <cstddef>
#include <unordered_set>

#include "model/TextTable.h"
#include "pages/PageText.h"
#include "tools/StandardTexts.h"
#include "tools/Text.h"
#include "tools/files/FindFiles.h"
#include "tools/files/Path.h"

namespace pages {

using model::LoadText;
using tools::Subfolders;

namespace {

constexpr int kFileSystemFolders = 1;  ///< flags of the shell's folder browser
constexpr int kEditBox = 16;

constexpr std::size_t kMostNamedPaths = 10;

bool IsControlCharacter(char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }

model::ICFile EntryFor(const std::string& path, std::int32_t targetFolder) {
  model::ICFile entry;
  entry.Type = model::ICFile::kSingleFile;
  entry.TargetFolder = targetFolder;
  entry.SourcePath = tools::FolderOf(path);
  entry.SourceName = tools::FileNamePart(path);
  entry.Vital = 1;
  return entry;
}

/// What two entries that install the same file into the same place have in common.
std::string SourceAndTarget(const model::ICFile& entry, const std::string& productFolder) {
  const std::string folder = tools::ResolvePath(entry.SourcePath, productFolder);
  return tools::JoinPath(folder, entry.SourceName) + '\n' + std::to_string(entry.TargetFolder) +
         '\n' + entry.TargetSubFolder + '\n' + entry.TargetName;
}

void TellOfPassedOver(tools::Dialogs& dialogs, const tools::FoundFiles& found) {
  std::vector<std::string> places = found.specialFiles;
  places.insert(places.end(), found.folderLinks.begin(), found.folderLinks.end());
  for (const tools::UnseenPath& link : found.deadLinks) places.push_back(link.path);
  if (places.empty()) return;
  const std::string first = *std::min_element(places.begin(), places.end());
  const std::string text = tools::ReplaceAll(LoadText(Text::PassedOverInFolder), "%count%",
                                             std::to_string(places.size()));
  (void)dialogs.ShowMessage(
      {.text = tools::ReplaceAll(text, "%path%", tools::EscapeControlCharacters(first)),
       .caption = tools::StandardText(tools::kTextWarning)});
}

std::vector<std::string> ListFiles(tools::Dialogs& dialogs, const std::string& folder,
                                   Subfolders subfolders) {
  tools::FoundFiles found =
      tools::SearchFiles(folder, "*.*", {.includeSubfolders = subfolders == Subfolders::Search});
  tools::RequireAllRead(found);
  TellOfPassedOver(dialogs, found);
  return std::move(found.paths);
}

}  // namespace

std::vector<std::string> AskForFiles(tools::Dialogs& dialogs) {
  return dialogs.OpenFiles({.title = LoadText(Text::FolderPrograms),
                            .initialFolder = {},
                            .filter = "*.*|*.*",
                            .defaultExtension = {},
                            .filterIndex = 1});
}

std::vector<std::string> FilesIn(tools::Dialogs& dialogs, const DroppedPaths& dropped) {
  std::vector<std::string> files = dropped.files;
  if (dropped.folders.empty()) return files;
  const bool search = dialogs.ShowMessage({.text = LoadText(Text::WithSubfolders),
                                           .caption = tools::StandardText(tools::kTextQuestion),
                                           .icon = tools::MessageIcon::Question,
                                           .buttons = tools::MessageButtons::YesNo,
                                           .defaultAnswer = tools::MessageAnswer::Yes}) ==
                      tools::MessageAnswer::Yes;
  const Subfolders subfolders = search ? Subfolders::Search : Subfolders::Skip;
  for (const std::string& folder : dropped.folders) {
    const std::vector<std::string> found = ListFiles(dialogs, folder, subfolders);
    files.insert(files.end(), found.begin(), found.end());
  }
  return files;
}

std::optional<std::vector<std::string>> AskForFolder(tools::Dialogs& dialogs,
                                                     Subfolders subfolders) {
  const std::string prompt =
      LoadText(Text::ChooseFolder) + " " +
      LoadText(subfolders == Subfolders::Search ? Text::AddsFilesOfFolderAndSubfolders
                                                : Text::AddsFilesOfFolder);
  const std::string folder = dialogs.BrowseFolder(prompt, kFileSystemFolders | kEditBox);
  if (folder.empty()) return std::nullopt;
  return ListFiles(dialogs, folder, subfolders);
}

std::string RefusalOf(const std::vector<std::string>& paths) {
  std::string text = LoadText(Text::PathsWithControlCharacters);
  const std::size_t named = std::min(paths.size(), kMostNamedPaths);
  for (std::size_t i = 0; i < named; ++i) {
    std::string path = paths[i];
    std::replace_if(path.begin(), path.end(), IsControlCharacter, '?');
    text.append("\n").append(path);
  }
  if (named == paths.size()) return text;
  return text.append("\n").append(Counted(Text::AndFurther, paths.size() - named));
}

NewEntries EntriesFor(const std::vector<std::string>& paths, std::int32_t targetFolder) {
  NewEntries added;
  for (const std::string& path : paths) {
    if (std::any_of(path.begin(), path.end(), IsControlCharacter)) {
      added.refused.push_back(path);
    } else {
      added.entries.push_back(EntryFor(path, targetFolder));
    }
  }
  return added;
}

std::size_t CountListed(const model::FileEntries& entries, const std::vector<model::ICFile>& added,
                        const std::string& productFolder) {
  std::unordered_set<std::string> listed;
  for (const model::ICFile& entry : entries) listed.insert(SourceAndTarget(entry, productFolder));
  if (listed.empty()) return 0;
  return static_cast<std::size_t>(
      std::count_if(added.begin(), added.end(), [&](const model::ICFile& entry) {
        return listed.contains(SourceAndTarget(entry, productFolder));
      }));
}

std::string AddedText(const std::vector<model::ICFile>& added, std::size_t listed) {
  if (added.empty()) return LoadText(Text::NoFilesFound);
  if (added.size() == 1) {
    return tools::ReplaceAll(LoadText(listed > 0 ? Text::AddedListedFile : Text::AddedFile),
                             "%file%", added.front().SourceName);
  }
  const std::string text = Counted(Text::AddedFiles, added.size());
  return listed == 0 ? text : text + " " + Counted(Text::ListedBefore, listed);
}

}  // namespace pages
