// Ends the program as soon as a window has appeared: the end of a measured start.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace bench {

/// Quits once `window` has been painted for the first time and its events are handled.
class QuitWhenPainted : public QObject {
 public:
  explicit QuitWhenPainted(QWidget& window) : QObject(&window) { window.installEventFilter(this); }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) QTimer::singleShot(0, qApp, &QApplication::quit);
    return false;
  }
};

}  // namespace bench
