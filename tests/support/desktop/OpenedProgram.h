// The desktop program as a test starts it, with the user's folders in a temporary one.
#pragma once

#include <QToolBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include "app/DesktopProgram.h"
#include "tests/support/desktop/UserHome.h"
#include "tests/support/desktop/Widgets.h"

namespace tests {

struct OpenedProgram {
  /// Without dialogs, the program's real ones come.
  explicit OpenedProgram(tools::Dialogs* dialogs = nullptr) : program(dialogs) {
    window.show();
    if (!QTest::qWaitForWindowActive(&window)) qFatal("the window does not become active");
  }

  void Open(const std::string& product) {
    program.OpenFromCommandLine({"packwright", tools::ToQString(product)});
  }

  QTreeWidget& Tree() const { return Child<QTreeWidget>(window, "trvProjectTree"); }

  /// The node of that key, null when there is none.
  QTreeWidgetItem* Node(const QString& key) const {
    for (QTreeWidgetItemIterator item(&Tree()); *item != nullptr; ++item) {
      if ((*item)->data(0, Qt::UserRole).toString() == key) return *item;
    }
    return nullptr;
  }

  /// Every node as "key=text", in square brackets when it is not expanded; joined by "|".
  QString Nodes() const {
    QStringList nodes;
    for (QTreeWidgetItemIterator item(&Tree()); *item != nullptr; ++item) {
      const QString node = (*item)->data(0, Qt::UserRole).toString() + "=" + (*item)->text(0);
      nodes += (*item)->isExpanded() ? node : "[" + node + "]";
    }
    return nodes.join('|');
  }

  QString SelectedKey() const {
    const QList<QTreeWidgetItem*> selected = Tree().selectedItems();
    return selected.isEmpty() ? QString() : selected.front()->data(0, Qt::UserRole).toString();
  }

  void Click(const QString& key, Qt::MouseButton button = Qt::LeftButton) const {
    QTest::mouseClick(Tree().viewport(), button, {}, Tree().visualItemRect(Node(key)).center());
  }

  /// Presses a button of the toolbar.
  void Press(const char* key) const {
    QToolBar& bar = Child<QToolBar>(window, "tbrMain");
    QTest::mouseClick(bar.widgetForAction(&Child<QAction>(window, key)), Qt::LeftButton);
  }

  /// Opens the selected node's menu by key, and picks the item in it.
  void PickFromMenu(const char* item) const {
    QTest::keyClick(&Tree(), Qt::Key_F10, Qt::ShiftModifier);
    PickFrom(OpenedMenu(), item);
  }

  app::DesktopProgram program;
  shell::frmMain& window = program.Window();
};

}  // namespace tests
