#include "tools/desktop/UserInputBlocker.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

namespace tools {

UserInputBlocker::UserInputBlocker() { QCoreApplication::instance()->installEventFilter(this); }

UserInputBlocker::~UserInputBlocker() { QCoreApplication::instance()->removeEventFilter(this); }

bool UserInputBlocker::IsInOpenWindow(const QObject* target) const {
  if (window_ == nullptr) return false;
  if (target == window_->windowHandle()) return true;
  const auto* widget = qobject_cast<const QWidget*>(target);
  return widget != nullptr && widget->window() == window_;
}

bool UserInputBlocker::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return !IsInOpenWindow(watched);
    case QEvent::KeyPress:
      if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) Q_EMIT EscapePressed();
      return true;
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
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
