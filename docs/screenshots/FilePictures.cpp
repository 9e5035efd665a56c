#include <QAction>
#include <QCompleter>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

#include "docs/screenshots/Drive.h"
#include "tools/desktop/QtText.h"

namespace screenshots {

namespace {

using model::Text;

QString Caption(Text text) { return tools::ToQString(model::LoadText(text)); }

QTreeView& Files(const QWidget& window) {
  return *window.findChild<QTreeView*>(QStringLiteral("lsvBrowser"));
}

/// Opens the dialog for a property of the selected entries.
void Edit(const QWidget& window, Text property, const Act& act) {
  auto& page = *window.findChild<QWidget*>(QStringLiteral("EditorTab1"));
  auto& grid = *page.findChild<QAbstractItemView*>(QStringLiteral("lsvProps"));
  const QModelIndexList row =
      grid.model()->match(grid.model()->index(0, 0), Qt::DisplayRole, Caption(property));
  WithModals([&] { DoubleClickRow(grid, row.front()); }, {act});
}

/// A list that a filter narrows down.
bool FilterPicture(const QWidget& window, const QDir& folder) {
  auto& filter = *window.findChild<QLineEdit*>(QStringLiteral("txtFilter"));
  filter.setText(QStringLiteral("mess"));
  const bool stored = PagePicture(window, 1, folder, QStringLiteral("file-filter"));
  filter.clear();
  return stored;
}

/// The form for a folder scan over the handbook's folder.
bool ScanPicture(const QWidget& window, const QDir& product, const QDir& folder) {
  bool stored = false;
  WithModals([&] { window.findChild<QAction*>(QStringLiteral("mnuAddScan"))->trigger(); },
             {[&](QDialog& form) {
               form.findChild<QLineEdit*>(QStringLiteral("txtFolder"))
                   ->setText(product.filePath(QStringLiteral("Quellen/Handbuch")));
               WaitWhile(form, QStringLiteral("lblFound"), Text::Searching);
               stored = StorePicture(form, folder, QStringLiteral("folder-scan"));
               form.reject();
             }});
  return stored;
}

/// The known target folders, below the field for a new one.
bool ValuePicture(const QWidget& window, const QDir& folder) {
  bool stored = false;
  ClickRow(Files(window), Files(window).model()->index(0, 0));
  Edit(window, Text::EntryTargetFolder, [&](QDialog& dialog) {
    auto& field = *dialog.findChild<QLineEdit*>(QStringLiteral("txtNewValue"));
    field.clear();
    PressKey(field, Qt::Key_Down);
    auto& list = *dialog.findChild<QCompleter*>()->popup();
    stored = StoreWithPopup(dialog, list, folder, QStringLiteral("known-values"));
    list.hide();
    dialog.reject();
  });
  return stored;
}

/// Two entries, and the form for a property in which they differ.
bool SeveralPictures(const QWidget& window, const QDir& folder) {
  QTreeView& files = Files(window);
  ClickRow(files, files.model()->index(0, 0));
  files.selectionModel()->select(files.model()->index(1, 0),
                                 QItemSelectionModel::Select | QItemSelectionModel::Rows);
  bool stored = PagePicture(window, 1, folder, QStringLiteral("file-several"));
  Edit(window, Text::EntrySelfRegister, [&](QDialog& dialog) {
    stored = stored && StorePicture(dialog, folder, QStringLiteral("mixed-value"));
    dialog.reject();
  });
  ClickRow(files, files.model()->index(0, 0));
  return stored;
}

/// A folder without entries, one of which has an unknown one; undone in the end.
bool EmptyFolderPictures(const QWidget& window, const QDir& folder) {
  Edit(window, Text::EntryTargetFolder, [](QDialog& dialog) {
    dialog.findChild<QLineEdit*>(QStringLiteral("txtNewValue"))->setText(QStringLiteral("0"));
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
  });
  ChooseFolder(window, Text::FolderDesktop);
  bool stored = PagePicture(window, 1, folder, QStringLiteral("file-empty"));
  auto& hint = *window.findChild<QLabel*>(QStringLiteral("lblEmptyFileList"));
  WithModals([&] { Q_EMIT hint.linkActivated(QStringLiteral("unknown")); }, {[&](QDialog& dialog) {
               stored = stored && StorePicture(dialog, folder, QStringLiteral("unknown-targets"));
               dialog.reject();
             }});
  window.findChild<QAction*>(QStringLiteral("mnuUndo"))->trigger();
  ChooseFolder(window, Text::FolderInstallation);
  return stored;
}

}  // namespace

bool FilePictures(shell::frmMain& window, const QDir& product, const QDir& folder) {
  return FilterPicture(window, folder) && ScanPicture(window, product, folder) &&
         ValuePicture(window, folder) && SeveralPictures(window, folder) &&
         EmptyFolderPictures(window, folder);
}

}  // namespace screenshots
