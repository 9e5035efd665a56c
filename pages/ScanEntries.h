// From file entries to the folder scans that they describe, and back.
#pragma once

#include <vector>

#include "model/ICFile.h"
#include "pages/FileListDocument.h"
#include "pages/PageRegistry.h"
#include "pages/ScanSearch.h"

namespace pages {

[[nodiscard]] FolderScan ScanOf(const model::ICFile& entry);

/// A new entry of that scan, without an ID. Offers a folder below the product's as a relative one,
/// as the next one does. Both raise tools::Error.
[[nodiscard]] model::ICFile EntryFor(const FolderScan& scan, std::int32_t targetFolder,
                                     const PageServices& services);

/// The edits that turn the entry into this scan; none when nothing differs.
[[nodiscard]] std::vector<FieldEdit> EditsToScan(const model::ICFile& entry, const FolderScan& scan,
                                                 const PageServices& services);

/// What the status bar says after the scan was added.
[[nodiscard]] std::string ToldOfScan(const model::ICFile& entry);

}  // namespace pages
