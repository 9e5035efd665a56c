// The desktop program as a test starts it: all its objects, with the user's folders in a temporary
// one.
#pragma once

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QMenu>
#include <QTest>
#include <QToolBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <memory>
#include <string>

#include "model/ModProject.h"
#include "model/ModProjectOperations.h"
#include "pages/PageRegistry.h"
#include "shell/NewProductDialog.h"
#include "shell/frmMain.h"
#include "tests/support/FixedClock.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/desktop/Widgets.h"
#include "tools/Disk.h"
#include "tools/Registry.h"
#include "tools/SettingsStore.h"

namespace tests {

/// Has the programs of this test keep the user's documents and preferences in `folder`.
inline void UseHome(const TemporaryFolder& folder) {
  qputenv("HOME", QByteArray::fromStdString(folder.Path()));
  qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(folder.Path("config")));
}

/// What the window system sends when the user presses a window's close box.
inline void PressCloseBox(QWidget& window) {
  QCloseEvent event;
  QSpontaneKeyEvent::setSpontaneous(&event);
  qApp->notify(&window, &event);
  if (event.isAccepted()) window.hide();
}

struct OpenedProgram {
  explicit OpenedProgram(tools::Dialogs& dialogs)
      : newProductForm(*registry, dialogs),
        operations(project, dialogs, clock, newProductForm),
        window({.project = project,
                .operations = operations,
                .dialogs = dialogs,
                .registry = *registry,
                .pageRegistry = pageRegistry}) {
    newProductForm.SetParent(&window);
    window.show();
  }

  [[nodiscard]] QTreeWidget& Tree() const { return Child<QTreeWidget>(window, "trvProjectTree"); }

  /// The node of that key, null when there is none.
  [[nodiscard]] QTreeWidgetItem* Node(const QString& key) const {
    for (QTreeWidgetItemIterator item(&Tree()); *item != nullptr; ++item) {
      if ((*item)->data(0, Qt::UserRole).toString() == key) return *item;
    }
    return nullptr;
  }

  [[nodiscard]] QString SelectedKey() const {
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
  void PickFromMenu(const char* menuName, const char* itemName) {
    QTest::keyClick(&Tree(), Qt::Key_F10, Qt::ShiftModifier);
    auto& menu = Child<QMenu>(window, menuName);
    QVERIFY2(menu.isVisible(), menuName);
    QTest::mouseClick(&menu, Qt::LeftButton, {},
                      menu.actionGeometry(&Child<QAction>(window, itemName)).center());
  }

  tools::SystemDisk disk;
  tools::SettingsStore settings{disk};
  std::unique_ptr<tools::Registry> registry = tools::OpenSystemRegistry(disk);
  FixedClock clock;
  model::ModProject project{settings};
  shell::NewProductDialog newProductForm;
  model::ModProjectOperations operations;
  pages::PageRegistry pageRegistry = pages::AllPages();
  shell::frmMain window;
};

}  // namespace tests
