// The folders of versions that are being deleted. A version first leaves the product's file; a
// program that is killed then leaves its folder, whose mark tells it from a folder of the author's.
#pragma once

#include <string>

#include "model/ModProject.h"
#include "model/Undo.h"
#include "tools/files/Disk.h"

namespace model {

/// True when both paths lead to one folder that is there.
[[nodiscard]] bool AreOneFolder(const std::string& path, const std::string& otherPath);

/// Marks the folder before its version leaves the product; a link gets no mark, for what it leads
/// to is not removed. Raises tools::Error naming the folder.
void MarkAsDeleted(tools::Disk& disk, const std::string& folder, Undo& undo);

/// Renames a marked folder, or a link, to `to`. Does nothing when another program has removed the
/// marked folder already. Raises tools::Error.
void MoveDeleted(tools::Disk& disk, const std::string& folder, const std::string& to);

/// Removes the folders that killed deletions have left. What cannot be removed stays until the
/// next call. Removes nothing where the folder holds two products.
void RemoveDeletedVersions(tools::Disk& disk, const ModProject& project);

}  // namespace model
