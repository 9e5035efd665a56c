// The note that stands in a version's folder while several components are copied into it. Their
// files come first, and the count that shows them all comes last: a program that is killed in
// between leaves files beyond the count, and the note tells them from an author's.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "model/ModProject.h"
#include "model/Undo.h"
#include "tools/files/Disk.h"

namespace model {

/// Notes which slots get which copies, and returns the path of the note, which its owner holds
/// (tools::TemporaryHold) and deletes when the count is written. Raises tools::Error.
[[nodiscard]] std::string NoteCopy(
    ModProject& project, tools::Disk& disk, VersionSlot version,
    const std::vector<ComponentSlot>& slots,
    const std::vector<std::shared_ptr<const tools::SettingsFile>>& copies, Undo& undo);

/// Deletes what a killed program has copied into the version without showing it; a file that has
/// changed since stays. For operations that raise the count, before they look for free slots.
/// Raises tools::Error, also while another program copies.
void RemoveUnfinishedCopy(const ModProject& project, tools::Disk& disk, VersionSlot version);

}  // namespace model
