#include "model/DeletedVersions.h"

#include <algorithm>
#include <vector>

#include "tools/Error.h"
#include "tools/files/Files.h"
#include "tools/files/FindFiles.h"
#include "tools/files/LinksAndMounts.h"
#include "tools/files/Names.h"
#include "tools/files/Path.h"
#include "tools/files/TemporaryFiles.h"

namespace model {

namespace {

constexpr std::string_view kMark = ".packwright-deleted";

// The mark holds the folder's own name: in a copy of the folder, or in one renamed, it is none.
std::string MarkOf(const std::string& folder) {
  return tools::JoinPath(tools::JoinPath(folder, kMark), tools::FileNamePart(folder));
}

void DiscardMark(tools::Disk& disk, const std::string& folder) {
  disk.DiscardFolder(MarkOf(folder));
  disk.DiscardFolder(tools::JoinPath(folder, kMark));
}

// What a link leads to is not the version's alone.
bool IsLink(const std::string& folder) { return tools::LinkTarget(folder) != folder; }

// Another product may list what this one does not.
bool IsProduct(const tools::FolderEntry& entry) {
  return entry.kind != tools::FolderEntry::Kind::Folder &&
         tools::EqualIgnoringAsciiCase(tools::Extension(entry.name), ModProject::kProductExtension);
}

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
  if (IsLink(folder)) return;
  undo.Add([&disk, folder] { DiscardMark(disk, folder); });
  try {
    disk.MakeFolder(MarkOf(folder));
  } catch (const tools::Error& error) {
    throw tools::PathError("Die Version kann nicht gelöscht werden", folder, error.Cause());
  }
  disk.SyncFolder(folder);
}

void MoveDeleted(tools::Disk& disk, const std::string& folder, const std::string& to) {
  // Without the mark it is another folder by now.
  if (!IsLink(folder) && !tools::FolderExists(MarkOf(folder))) return;
  try {
    disk.MoveFolder(folder, to);
  } catch (const tools::Error&) {
    if (tools::FolderExists(folder)) throw;
  }
}

void RemoveDeletedVersions(tools::Disk& disk, const ModProject& project) {
  std::error_code failure;
  const std::vector<tools::FolderEntry> entries =
      tools::ListEntries(project.ProductFolder(), failure);
  if (std::ranges::count_if(entries, IsProduct) > 1) return;
  for (const tools::FolderEntry& entry : entries) {
    const std::string folder = tools::JoinPath(project.ProductFolder(), entry.name);
    if (entry.kind != tools::FolderEntry::Kind::Folder || !tools::FolderExists(MarkOf(folder))) {
      continue;
    }
    if (IsListed(folder, project)) {
      DiscardMark(disk, folder);
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
