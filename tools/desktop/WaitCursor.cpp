#include "tools/desktop/WaitCursor.h"

#include <QCursor>
#include <QGuiApplication>

namespace tools {

WaitCursor::WaitCursor() { QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor)); }

WaitCursor::~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }

ArrowCursor::ArrowCursor() : shown_(QGuiApplication::overrideCursor() != nullptr) {
  // Without an hourglass the windows keep their own pointers (a text box has its caret).
  if (shown_) QGuiApplication::setOverrideCursor(QCursor(Qt::ArrowCursor));
}

ArrowCursor::~ArrowCursor() {
  if (shown_) QGuiApplication::restoreOverrideCursor();
}

}  // namespace tools
