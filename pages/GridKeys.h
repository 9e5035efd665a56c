// Editing in a property grid without a mouse.
#pragma once

#include "grid/ctlPropertyEditor.h"
#include "tools/Dialogs.h"

namespace pages {

/// Enter and F2 edit the grid's selected row, as a double click does. `dialogs` must outlive the
/// grid.
void EditOnKeys(grid::ctlPropertyEditor& grid, tools::Dialogs& dialogs);

}  // namespace pages
