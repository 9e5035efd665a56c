#include "pages/PageGrid.h"

#include <QKeyEvent>

#include "pages/PageText.h"
#include "tools/desktop/Guard.h"

namespace pages {

namespace {

grid::GridTexts Texts() {
  return {.accessibleName = Caption(Text::Properties),
          .notEditable = Caption(Text::ValueNotEditable),
          .editCaption = Caption(Text::ChangeProperty),
          .prompt = Caption(Text::EnterPropertyValue),
          .oldValue = Caption(Text::OldValue),
          .newValue = Caption(Text::NewValueLabel),
          .reset = Caption(Text::ResetToDefault),
          .browse = Caption(Text::Browse),
          .knownValues = Caption(Text::KnownValues)};
}

bool StartsEdit(const QKeyEvent& event) {
  const int key = event.key();
  return !event.isAutoRepeat() &&
         (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2);
}

/// Watches the keys of the grid's list, and belongs to the grid.
class EditKeys : public QObject {
 public:
  EditKeys(grid::ctlPropertyEditor& grid, tools::Dialogs& dialogs)
      : QObject(&grid), grid_(grid), dialogs_(dialogs) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress && !editing_ &&
        StartsEdit(static_cast<const QKeyEvent&>(*event))) {
      editing_ = true;
      // Queued, so that the dialog does not open while the list still handles the key.
      QMetaObject::invokeMethod(this, &EditKeys::Edit, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  void Edit() {
    tools::Guard(dialogs_, [this] { grid_.EditProperty(grid_.SelectedProperty()); });
    editing_ = false;
  }

  grid::ctlPropertyEditor& grid_;
  tools::Dialogs& dialogs_;
  bool editing_ = false;  ///< from the key until the edit has ended
};

}  // namespace

grid::ctlPropertyEditor* MakeGrid(tools::Dialogs& dialogs, QWidget* parent) {
  auto* grid = new grid::ctlPropertyEditor(dialogs, Texts(), parent);
  grid->focusProxy()->installEventFilter(new EditKeys(*grid, dialogs));
  return grid;
}

}  // namespace pages
