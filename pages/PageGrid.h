// The property grid as the editor pages embed it.
#pragma once

#include "grid/ctlPropertyEditor.h"
#include "tools/Dialogs.h"

namespace pages {

/// A grid with the program's texts, in which Enter and F2 edit the selected row as a double click
/// does. A key that repeats, or comes while an edit is open, starts none. `dialogs` must outlive
/// the grid.
[[nodiscard]] grid::ctlPropertyEditor* MakeGrid(tools::Dialogs& dialogs, QWidget* parent = nullptr);

}  // namespace pages
