// Finds widgets as a user does, by their names, and does with them what a user does.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QTreeView>
#include <QWheelEvent>

#include "tests/support/ScriptedDialogs.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/desktop/QtText.h"

namespace tests {

using model::Text;
using tools::MessageAnswer;
using tools::ToQString;

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

/// What the control of that name shows: its text, or the title of a frame.
inline QString Shown(const QWidget& parent, const char* name) {
  const QWidget& control = Child(parent, name);
  for (const char* property : {"currentText", "plainText", "title", "text"}) {
    if (control.property(property).isValid()) return control.property(property).toString();
  }
  qFatal("\"%s\" has no text", name);
}

/// The same of several controls, joined by "|".
inline QString Shown(const QWidget& parent, std::initializer_list<const char*> names) {
  QStringList texts;
  for (const char* name : names) texts += Shown(parent, name);
  return texts.join('|');
}

inline void Press(const QWidget& parent, const char* button) {
  QTest::mouseClick(&Child<QAbstractButton>(parent, button), Qt::LeftButton);
}

/// Types into a text box, in place of what it holds.
inline void Type(QWidget& field, const QString& text) {
  QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&field, Qt::Key_Delete);
  for (const QChar character : text) {
    QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, character, Qt::NoModifier);
  }
}

/// Makes a shown window the active one, which keys and modal windows ask for.
inline void Activate(QWidget& window) {
  window.activateWindow();
  if (!QTest::qWaitForWindowActive(&window)) qFatal("the window does not become active");
}

/// Turns the mouse wheel over a widget; down for a negative angle.
inline void TurnWheel(QWidget& widget, int angle) {
  QWheelEvent turn({5, 5}, widget.mapToGlobal(QPoint(5, 5)), {}, {0, angle}, {}, {},
                   Qt::NoScrollPhase, false);
  QApplication::sendEvent(&widget, &turn);
}

/// Lets what is dragged fall onto a widget; returns what its source is told to do.
inline Qt::DropAction Drop(QWidget& target, const QPoint& place, const QMimeData& dragged,
                           Qt::DropActions actions, Qt::KeyboardModifiers keys = {}) {
  QDragEnterEvent enter(place, actions, &dragged, Qt::LeftButton, keys);
  QApplication::sendEvent(&target, &enter);
  QDropEvent drop(place, actions, &dragged, Qt::LeftButton, keys);
  QApplication::sendEvent(&target, &drop);
  return drop.dropAction();
}

/// What the window system sends when the user presses a window's close box.
inline void PressCloseBox(QWidget& window) {
  QCloseEvent event;
  QSpontaneKeyEvent::setSpontaneous(&event);
  qApp->notify(&window, &event);
  if (event.isAccepted()) window.hide();
}

/// The menu that is open or about to open.
inline QMenu& OpenedMenu() {
  const auto isOpen = [] { return QApplication::activePopupWidget() != nullptr; };
  if (!QTest::qWaitFor(isOpen)) qFatal("no menu opens");
  return *qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

inline void PickFrom(QMenu& menu, const char* item) {
  auto& action = Child<QAction>(menu, item);
  QVERIFY2(action.isEnabled(), item);
  QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&action).center());
}

inline void Click(QAbstractItemView& view, const QModelIndex& index,
                  Qt::KeyboardModifiers modifiers = {}) {
  view.scrollTo(index);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, view.visualRect(index).center());
}

inline void DoubleClick(QAbstractItemView& view, const QModelIndex& index) {
  Click(view, index);
  QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
  QTest::mouseRelease(view.viewport(), Qt::LeftButton);
}

/// The row whose first column shows `text`; invalid when there is none.
inline QModelIndex RowWith(const QAbstractItemView& view, const QString& text) {
  return view.model()
      ->match(view.model()->index(0, 0), Qt::DisplayRole, text, 1, Qt::MatchExactly)
      .value(0);
}

/// All rows of a list, joined by "|", each as its columns joined by "=".
inline QString Rows(const QAbstractItemView& view) {
  QStringList rows;
  for (int row = 0; row < view.model()->rowCount(); ++row) {
    QStringList cells;
    for (int column = 0; column < view.model()->columnCount(); ++column) {
      cells += view.model()->index(row, column).data().toString();
    }
    rows += cells.join('=');
  }
  return rows.join('|');
}

/// The list of rows inside the page's property grid.
inline QAbstractItemView& Grid(const QWidget& page) {
  return Child<QAbstractItemView>(page, "lsvProps");
}

/// Every message shown so far, each as "caption|text" on a line.
inline QString Told(const ScriptedDialogs& dialogs) {
  QStringList messages;
  for (const tools::Message& message : dialogs.Messages()) {
    messages += QString::fromStdString(message.caption + "|" + message.text);
  }
  return messages.join('\n');
}

/// Whether one message was shown so far, an error whose text has this part.
inline bool IsToldOneError(const ScriptedDialogs& dialogs, const QString& part) {
  return dialogs.Messages().size() == 1 && Told(dialogs).startsWith("Fehler|") &&
         Told(dialogs).contains(part);
}

}  // namespace tests
