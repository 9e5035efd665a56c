#include "tools/desktop/UserInputBlocker.h"

#include <QCoreApplication>
#include <QEvent>

namespace tools {

UserInputBlocker::UserInputBlocker() { QCoreApplication::instance()->installEventFilter(this); }

UserInputBlocker::~UserInputBlocker() { QCoreApplication::instance()->removeEventFilter(this); }

bool UserInputBlocker::eventFilter(QObject* /*watched*/, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TabletPress:
    case QEvent::TouchBegin:
    case QEvent::Drop:
      return true;
    case QEvent::Close:
      if (!event->spontaneous()) return false;
      event->ignore();
      return true;
    default:
      return false;
  }
}

void PaintWithoutUserInput() {
  const UserInputBlocker blocker;
  QCoreApplication::processEvents();
}

}  // namespace tools
