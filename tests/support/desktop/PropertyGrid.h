// The property grid of a page, as a user edits it.
#pragma once

#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/Widgets.h"

namespace tests {

/// The list of rows inside the page's property grid.
inline QAbstractItemView& Grid(const QWidget& page) {
  return Child<QAbstractItemView>(page, "lsvProps");
}

/// Edits the row of that title in the grid's dialog.
inline void Edit(const QWidget& page, const QString& title, const QString& value) {
  ModalScript script;
  script.ExpectTyping("frmEditProperty", "txtNewValue", value);
  DoubleClick(Grid(page), RowWith(Grid(page), title));
}

}  // namespace tests
