#include "pages/ListPopup.h"

#include <QAbstractItemView>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>

#include "tools/desktop/PopUpMenu.h"

namespace pages {

ListPopup::ListPopup(QAbstractItemView& list, QMenu& menu)
    : QObject(&list), list_(list), menu_(menu) {
  list.installEventFilter(this);
  list.viewport()->installEventFilter(this);
}

bool ListPopup::eventFilter(QObject* watched, QEvent* event) {
  // The type first: the viewport outlives the list for a moment and gets events then.
  if (event->type() == QEvent::MouseButtonPress && watched == list_.viewport()) {
    const auto& press = static_cast<const QMouseEvent&>(*event);
    if (press.button() == Qt::RightButton) {
      // The list selects the row under the mouse first.
      QMetaObject::invokeMethod(
          this, [this, at = press.globalPosition().toPoint()] { menu_.popup(at); },
          Qt::QueuedConnection);
    }
  }
  if (event->type() == QEvent::KeyPress && watched == &list_) {
    // Not every window system takes these keys for the menu key.
    const auto& keys = static_cast<const QKeyEvent&>(*event);
    if (keys.key() == Qt::Key_F10 && keys.modifiers() == Qt::ShiftModifier) {
      const QPoint row = list_.visualRect(list_.currentIndex()).center();
      tools::PopUpMenu(menu_, list_.viewport()->mapToGlobal(row), tools::OpenedBy::Key);
      return true;
    }
  }
  if (event->type() == QEvent::ContextMenu) {
    const auto& request = static_cast<const QContextMenuEvent&>(*event);
    if (request.reason() != QContextMenuEvent::Mouse) {
      tools::PopUpMenu(menu_, request.globalPos(), tools::OpenedBy::Key);
    }
    return true;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace pages
