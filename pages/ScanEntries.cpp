#include "pages/ScanEntries.h"

#include "pages/PageText.h"
#include "pages/RelativeSources.h"
#include "tools/files/Path.h"

namespace pages {

FolderScan ScanOf(const model::ICFile& entry) {
  return {.folder = entry.SourcePath,
          .pattern = entry.SourceName,
          .withSubfolders = entry.IncludeChildren != 0};
}

model::ICFile EntryFor(const FolderScan& scan, std::int32_t targetFolder,
                       const PageServices& services) {
  model::ICFile entry;
  entry.Type = model::ICFile::kFolderScan;
  entry.TargetFolder = targetFolder;
  entry.SourcePath = OfferRelativeFolder(scan.folder, services.project, services.dialogs);
  entry.SourceName = scan.pattern;
  entry.IncludeChildren = scan.withSubfolders ? 1 : 0;
  entry.Vital = 1;
  return entry;
}

std::vector<FieldEdit> EditsToScan(const model::ICFile& entry, const FolderScan& scan,
                                   const PageServices& services) {
  const FolderScan before = ScanOf(entry);
  std::vector<FieldEdit> edits;
  // Bytes that no screen shows stay as they are unless the author changed the text.
  if (scan.folder != AsShown(before.folder)) {
    edits.push_back({entry.ID, "SourcePath",
                     OfferRelativeFolder(scan.folder, services.project, services.dialogs)});
  }
  if (scan.pattern != AsShown(before.pattern))
    edits.push_back({entry.ID, "SourceName", scan.pattern});
  if (scan.withSubfolders != before.withSubfolders) {
    edits.push_back({entry.ID, "IncludeChildren", scan.withSubfolders ? "1" : "0"});
  }
  return edits;
}

std::string ToldOfScan(const model::ICFile& entry) {
  return tools::ReplaceAll(model::LoadText(Text::AddedScan), "%scan%",
                           tools::JoinPath(entry.SourcePath, entry.SourceName));
}

}  // namespace pages
