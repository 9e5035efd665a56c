// The values that the pages' grids propose, with their meanings.
#pragma once

#include "grid/KnownValues.h"
#include "model/ModProject.h"
#include "tools/Dialogs.h"

namespace pages {

/// For a field of a file entry: 0 and 1 of flags, the entry types, the destination folders; the
/// source folder is browsed for, and offered as a relative one.
[[nodiscard]] grid::ValueHelp FileFieldHelp(const QString& field, model::ModProject& project,
                                            tools::Dialogs& dialogs);

/// The languages of the build options, by their identifiers.
[[nodiscard]] grid::ValueHelp LanguageHelp();

/// A folder of the author's machine.
[[nodiscard]] grid::ValueHelp FolderHelp(tools::Dialogs& dialogs);

}  // namespace pages
