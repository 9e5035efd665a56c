#include "build/SourceList.h"

#include "tools/Error.h"
#include "tools/Files.h"
#include "tools/Path.h"

namespace build {

namespace {

SourceList SingleFile(const model::ICFile& entry, const std::string& folder) {
  std::string path = tools::JoinPath(folder, entry.SourceName);
  if (tools::FileExists(path)) return {{std::move(path)}, {}, SourceFault::None, {}, {}};
  return {{}, {}, SourceFault::Missing, "File missing: " + path, "Die Quelldatei fehlt: " + path};
}

SourceList FolderScan(const model::ICFile& entry, const std::string& folder) {
  SourceList list;
  try {
    list.paths =
        tools::FindFiles(folder, entry.SourceName, entry.IncludeChildren != 0, &list.links);
  } catch (const tools::Error& error) {
    return {{}, {}, SourceFault::Unreadable, error.what(), error.what()};
  }
  if (list.paths.empty()) {
    list.fault = SourceFault::NoMatch;
    list.logText =
        "No files found in '" + entry.SourcePath + "' matching '" + entry.SourceName + "'";
    list.userText = "Keine Datei im Ordner '" + folder + "' passt zu '" + entry.SourceName + "'";
  }
  return list;
}

}  // namespace

std::string SourceFolderOf(const model::ICFile& entry, const std::string& productFolder) {
  return tools::ResolvePath(entry.SourcePath, productFolder);
}

SourceList ListSources(const model::ICFile& entry, const std::string& productFolder) {
  if (entry.Type == model::ICFile::kSingleFile) {
    return SingleFile(entry, SourceFolderOf(entry, productFolder));
  }
  if (entry.Type == model::ICFile::kFolderScan) {
    return FolderScan(entry, SourceFolderOf(entry, productFolder));
  }
  return {};
}

}  // namespace build
