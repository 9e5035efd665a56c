#include "pages/GridKeys.h"

#include "tools/desktop/Guard.h"

namespace pages {

void EditOnKeys(grid::ctlPropertyEditor& grid, tools::Dialogs& dialogs) {
  const auto edit = [&grid](Qt::Key key, Qt::KeyboardModifiers) {
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2) {
      grid.EditProperty(grid.SelectedProperty());
    }
  };
  // Queued, so that the dialog does not open while the list still handles the key.
  QObject::connect(&grid, &grid::ctlPropertyEditor::KeyDown, &grid, tools::Guarded(dialogs, edit),
                   Qt::QueuedConnection);
}

}  // namespace pages
