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
    Activate(window);
  }

  void Open(const std::string& product) {
    program.OpenFromCommandLine({"packwright", ToQString(product)});
  }

  QTreeWidget& Tree() const { return Child<QTreeWidget>(window, "trvProjectTree"); }

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

  /// Where the node of that key is shown.
  QPoint PlaceOf(const QString& key) const {
    for (QTreeWidgetItemIterator item(&Tree()); *item != nullptr; ++item) {
      if ((*item)->data(0, Qt::UserRole) == key) return Tree().visualItemRect(*item).center();
    }
    qFatal("there is no node %s", qPrintable(key));
  }

  void Click(const QString& key, Qt::MouseButton button = Qt::LeftButton) const {
    QTest::mouseClick(Tree().viewport(), button, {}, PlaceOf(key));
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
