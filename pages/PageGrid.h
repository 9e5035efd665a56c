// The property grid as the editor pages embed it, and the values that it proposes there.
#pragma once

#include "grid/ctlPropertyEditor.h"
#include "model/ModProject.h"
#include "tools/Dialogs.h"

namespace pages {

/// A grid with the program's texts, in which Enter and F2 edit the selected row as a double click
/// does. A key that repeats, or comes while an edit is open, starts none. `dialogs` must outlive
/// the grid.
[[nodiscard]] grid::ctlPropertyEditor* MakeGrid(tools::Dialogs& dialogs, QWidget* parent = nullptr);

// The values that a grid proposes, with their meanings:

/// For a field of a file entry: 0 and 1 of flags, the entry types, the destination folders; the
/// source folder is browsed for, and offered as a relative one.
[[nodiscard]] grid::ValueHelp FileFieldHelp(const QString& field, model::ModProject& project,
                                            tools::Dialogs& dialogs);

/// The languages of the build options, by their identifiers.
[[nodiscard]] grid::ValueHelp LanguageHelp();

/// A folder of the author's machine.
[[nodiscard]] grid::ValueHelp FolderHelp(tools::Dialogs& dialogs);

}  // namespace pages
