#include "model/DeletedVersions.h"

#include <algorithm>
#include <vector>

#include "tools/Error.h"
#include "tools/files/Files.h"
#include "tools/files/FindFiles.h"
#include "tools/files/Names.h"
#include "tools/files/Path.h"
#include "tools/files/TemporaryFiles.h"

namespace model {

namespace {

constexpr std::string_view kMark = ".packwright-deleted";

bool IsListed(const std::string& folder, const ModProject& project) {
  const std::vector<std::string> stored = project.StoredVersionTexts();
  return std::any_of(stored.begin(), stored.end(), [&](const std::string& text) {
    return tools::IsSafeNamePart(text) && AreOneFolder(project.VersionFolder(text), folder);
  });
}

}  // namespace

bool AreOneFolder(const std::string& path, const std::string& otherPath) {
  const tools::FileStamp one = tools::StampOf(path);
  const tools::FileStamp other = tools::StampOf(otherPath);
  return one.exists && other.exists && one.device == other.device && one.identity == other.identity;
}

void MarkAsDeleted(tools::Disk& disk, const std::string& folder, Undo& undo) {
  const std::string mark = tools::JoinPath(folder, kMark);
  try {
    disk.MakeFolder(mark);
  } catch (const tools::Error& error) {
    throw tools::PathError("Die Version kann nicht gelöscht werden", folder, error.Cause());
  }
  undo.Add([&disk, mark] { disk.DiscardFolder(mark); });
  disk.SyncFolder(folder);
}

void MoveDeleted(tools::Disk& disk, const std::string& folder, const std::string& to) {
  try {
    disk.MoveFolder(folder, to);
  } catch (const tools::Error&) {
    if (tools::FolderExists(folder)) throw;
  }
}

void RemoveDeletedVersions(tools::Disk& disk, const ModProject& project) {
  std::error_code failure;
  for (const tools::FolderEntry& entry : tools::ListEntries(project.ProductFolder(), failure)) {
    const std::string folder = tools::JoinPath(project.ProductFolder(), entry.name);
    const std::string mark = tools::JoinPath(folder, kMark);
    if (entry.kind != tools::FolderEntry::Kind::Folder || !tools::FolderExists(mark)) continue;
    if (IsListed(folder, project)) {
      disk.DiscardFolder(mark);
      continue;
    }
    try {
      const std::string removed = tools::TemporaryNameBeside(folder);
      MoveDeleted(disk, folder, removed);
      if (tools::FolderExists(removed)) disk.RemoveFolderTree(removed);
    } catch (const tools::Error&) {  // NOLINT(bugprone-empty-catch): for the next time
    }
  }
}

}  // namespace model
