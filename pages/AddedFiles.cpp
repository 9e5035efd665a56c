#include "pages/AddedFiles.h"

#include <algorithm>
#include <cstddef>

#include "model/TextTable.h"
#include "tools/Text.h"
#include "tools/files/FindFiles.h"
#include "tools/files/Path.h"

namespace pages {

using model::LoadText;
using model::Text;

namespace {

constexpr int kFileSystemFolders = 1;  ///< flags of the shell's folder browser
constexpr int kEditBox = 16;

constexpr std::size_t kMostNamedPaths = 10;

bool IsControlCharacter(char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }

}  // namespace

std::string AskForFile(tools::Dialogs& dialogs) {
  return dialogs.OpenFile({.title = LoadText(Text::FolderPrograms),
                           .initialFolder = {},
                           .filter = "*.*|*.*",
                           .defaultExtension = {},
                           .filterIndex = 1});
}

std::vector<std::string> AskForFolder(tools::Dialogs& dialogs, bool withSubfolders) {
  const std::string prompt =
      LoadText(Text::ChooseFolder) + " " +
      LoadText(withSubfolders ? Text::AddsFilesOfFolderAndSubfolders : Text::AddsFilesOfFolder);
  const std::string folder = dialogs.BrowseFolder(prompt, kFileSystemFolders | kEditBox);
  if (folder.empty()) return {};
  return tools::FindFiles(folder, "*.*", withSubfolders);
}

bool CanBeStored(const std::string& path) {
  return std::none_of(path.begin(), path.end(), IsControlCharacter);
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
  const std::string others = std::to_string(paths.size() - named);
  return text.append("\n").append(tools::ReplaceAll(LoadText(Text::AndFurther), "%count%", others));
}

model::ICFile EntryFor(const std::string& path, std::int32_t targetFolder) {
  model::ICFile entry;
  entry.Type = model::ICFile::kSingleFile;
  entry.TargetFolder = targetFolder;
  entry.SourcePath = tools::FolderOf(path);
  entry.SourceName = tools::FileNamePart(path);
  entry.Vital = 1;
  return entry;
}

}  // namespace pages
