// Finds widgets as a user does: by their name, and only those that are there.
#pragma once

#include <QApplication>
#include <QWidget>

namespace tests {

/// The descendant of `parent` with that objectName. A test cannot go on without it: ends the
/// program when there is none.
template <typename T = QWidget>
T& Child(const QWidget& parent, const char* name) {
  T* child = parent.findChild<T*>(QString::fromUtf8(name));
  if (child == nullptr) {
    qFatal("%s \"%s\" has no %s named \"%s\"", parent.metaObject()->className(),
           qUtf8Printable(parent.objectName()), T::staticMetaObject.className(), name);
  }
  return *child;
}

/// The visible window with that objectName; null when there is none.
template <typename T = QWidget>
T* VisibleWindow(const char* name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->objectName() == QString::fromUtf8(name)) {
      return qobject_cast<T*>(window);
    }
  }
  return nullptr;
}

}  // namespace tests
