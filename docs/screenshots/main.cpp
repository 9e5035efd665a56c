// Makes the documentation's pictures: opens a product in the real main window and stores what it
// looks like.
//
//   screenshots PRODUCT FOLDER [dark]
//
// In dark colours they are only for looking at.
#include <QAction>
#include <QComboBox>
#include <QCursor>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QModelIndex>
#include <QMouseEvent>
#include <QPalette>
#include <QPushButton>
#include <QTabBar>
#include <QTimer>
#include <QTreeView>
#include <QTreeWidget>
#include <cstdio>

#include "app/DesktopProgram.h"
#include "model/TextTable.h"
#include "pages/EditorPage.h"
#include "shell/GuardedApplication.h"
#include "tools/desktop/FocusStyle.h"
#include "tools/desktop/QtText.h"
#include "tools/desktop/wizard/WizardStructure.h"

namespace {

constexpr QSize kWindowSize(1000, 640);

void ClickRow(const QAbstractItemView& view, const QModelIndex& row) {
  QWidget* rows = view.viewport();
  const QPointF place = view.visualRect(row).center();
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, place, rows->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(rows, &event);
  }
}

void ClickNode(const QTreeWidget& tree, const QString& key) {
  const QModelIndexList nodes = tree.model()->match(tree.model()->index(0, 0), Qt::UserRole, key, 1,
                                                    Qt::MatchExactly | Qt::MatchRecursive);
  if (!nodes.isEmpty()) ClickRow(tree, nodes.front());
}

bool StorePicture(QWidget& window, const QDir& folder, const QString& name) {
  QCoreApplication::processEvents();
  const QString path = folder.filePath(name + QStringLiteral(".png"));
  if (window.grab().save(path)) return true;
  std::fprintf(stderr, "cannot write %s\n", qUtf8Printable(path));
  return false;
}

bool MainWindowPicture(shell::frmMain& window, const QDir& folder) {
  ClickNode(*window.findChild<QTreeWidget*>(QStringLiteral("trvProjectTree")),
            QStringLiteral("v2c1"));
  // The files that go into the installation folder, with one of them selected.
  auto& target = *window.findChild<QComboBox*>(QStringLiteral("cmbDestinationFolder"));
  target.setCurrentIndex(target.findText(
      tools::ToQString(model::LoadText(model::Text::FolderInstallation)), Qt::MatchContains));
  Q_EMIT target.activated(target.currentIndex());
  const auto& files = *window.findChild<QTreeView*>(QStringLiteral("lsvBrowser"));
  ClickRow(files, files.model()->index(0, 0));
  return StorePicture(window, folder, QStringLiteral("main-window"));
}

/// A picture of one page of the selected node; `position` is that of its tab, from 1.
bool PagePicture(const QWidget& window, int position, const QDir& folder, const QString& name) {
  window.findChild<QTabBar*>(QStringLiteral("tabDataEditor"))->setCurrentIndex(position - 1);
  return StorePicture(*window.findChild<QWidget*>(QStringLiteral("EditorTab%1").arg(position)),
                      folder, name);
}

/// The component's pages as the main window's picture leaves them, and the version's.
bool PagePictures(shell::frmMain& window, const QDir& folder) {
  bool stored = PagePicture(window, 1, folder, QStringLiteral("page-files"));
  // A key of the machine's registry. Nothing is typed into the values, so nothing is stored.
  auto& path = *window.findChild<QComboBox*>(QStringLiteral("cmbRegPath"))->lineEdit();
  path.setText(QStringLiteral("HKEY_LOCAL_MACHINE\\Software"));
  Q_EMIT path.returnPressed();
  path.deselect();
  stored = stored && PagePicture(window, 2, folder, QStringLiteral("page-registry"));
  ClickNode(*window.findChild<QTreeWidget*>(QStringLiteral("trvProjectTree")),
            QStringLiteral("v2"));
  return stored && PagePicture(window, 4, folder, QStringLiteral("page-build-options")) &&
         PagePicture(window, 5, folder, QStringLiteral("page-tessel"));
}

/// Returns when the label of that name, if it is shown, does not say `text` any more.
void WaitWhile(const QWidget& window, const QString& label, model::Text text) {
  const auto* shown = window.findChild<QLabel*>(label);
  const QString awaited = tools::ToQString(model::LoadText(text));
  while (shown != nullptr && shown->isVisible() && shown->text().contains(awaited)) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
}

/// A filtered list, and the form for a folder scan over the handbook's folder.
bool FilePictures(shell::frmMain& window, const QDir& product, const QDir& folder) {
  auto& filter = *window.findChild<QLineEdit*>(QStringLiteral("txtFilter"));
  filter.setText(QStringLiteral("mess"));
  bool stored = PagePicture(window, 1, folder, QStringLiteral("file-filter"));
  filter.clear();
  QTimer::singleShot(0, &window, [&] {
    auto& form = *qobject_cast<QDialog*>(QApplication::activeModalWidget());
    form.findChild<QLineEdit*>(QStringLiteral("txtFolder"))
        ->setText(product.filePath(QStringLiteral("Quellen/Handbuch")));
    WaitWhile(form, QStringLiteral("lblFound"), model::Text::Searching);
    stored = stored && StorePicture(form, folder, QStringLiteral("folder-scan"));
    form.reject();
  });
  window.findChild<QAction*>(QStringLiteral("mnuAddScan"))->trigger();
  return stored;
}

/// What the check of a version with a missing source finds.
bool ResultPicture(shell::frmMain& window, const QDir& product, const QDir& folder) {
  ClickNode(*window.findChild<QTreeWidget*>(QStringLiteral("trvProjectTree")),
            QStringLiteral("v2"));
  const QString source = product.filePath(QStringLiteral("Quellen/Programm/Liesmich.txt"));
  const QString moved = source + QLatin1Char('~');
  QFile::rename(source, moved);
  window.findChild<QAction*>(QStringLiteral("mnuVersionCheck"))->trigger();
  WaitWhile(window, QStringLiteral("lblOutcome"), model::Text::CheckIsRunning);
  QFile::rename(moved, source);
  const bool stored = StorePicture(window, folder, QStringLiteral("result-check"));
  window.findChild<QWidget*>(QStringLiteral("pnlResult"))->hide();
  return stored;
}

/// One picture of each page but the last, while the wizard is open.
bool WizardPictures(shell::frmMain& window, const QDir& folder) {
  ClickNode(*window.findChild<QTreeWidget*>(QStringLiteral("trvProjectTree")),
            QStringLiteral("v2"));
  bool stored = false;
  QTimer::singleShot(0, &window, [&] {
    auto* wizard = qobject_cast<tools::WizardStructure*>(QApplication::activeModalWidget());
    if (wizard == nullptr) return;
    stored = true;
    for (const char* page : {"intro", "configuration", "output", "packaging"}) {
      WaitWhile(*wizard, QStringLiteral("lblCheck"), model::Text::CheckIsRunning);
      stored = stored && wizard->CurrentPage() == page &&
               StorePicture(*wizard, folder, QStringLiteral("wizard-") + QLatin1String(page));
      wizard->findChild<QPushButton*>(QStringLiteral("cmdNext"))->click();
    }
    wizard->reject();
  });
  window.findChild<QAction*>(QStringLiteral("setupwiz"))->trigger();
  return stored;
}

/// A version without components, and the version to take some from. Adds version 1.2.0.
bool EmptyVersionPictures(shell::frmMain& window, const QDir& folder) {
  ClickNode(*window.findChild<QTreeWidget*>(QStringLiteral("trvProjectTree")),
            QStringLiteral("product"));
  QTimer::singleShot(0, &window, [] {
    auto& question = *qobject_cast<QDialog*>(QApplication::activeModalWidget());
    question.findChild<QLineEdit*>()->setText(QStringLiteral("1.2.0"));
    question.accept();
  });
  window.findChild<QAction*>(QStringLiteral("mnuProductAddVersion"))->trigger();
  ClickNode(*window.findChild<QTreeWidget*>(QStringLiteral("trvProjectTree")),
            QStringLiteral("v3"));
  bool stored = StorePicture(window, folder, QStringLiteral("version-empty"));
  QTimer::singleShot(0, &window, [&] {
    auto& choice = *qobject_cast<QDialog*>(QApplication::activeModalWidget());
    stored = stored && StorePicture(choice, folder, QStringLiteral("version-choice"));
    choice.reject();
  });
  window.findChild<QAbstractButton*>(QStringLiteral("lnkTakeOver"))->click();
  return stored;
}

/// A changed page, and the start page after its product was closed.
bool StatePictures(shell::frmMain& window, const QDir& folder) {
  ClickNode(*window.findChild<QTreeWidget*>(QStringLiteral("trvProjectTree")),
            QStringLiteral("product"));
  auto& page = *window.findChild<pages::EditorPage*>(QStringLiteral("EditorTab1"));
  page.SetDirty(true);
  const bool stored = StorePicture(window, folder, QStringLiteral("unsaved"));
  page.SetDirty(false);
  window.findChild<QAction*>(QStringLiteral("close"))->trigger();
  return stored && StorePicture(window, folder, QStringLiteral("start-page"));
}

bool MakePictures(const QString& product, const QDir& folder) {
  app::DesktopProgram program;
  shell::frmMain& window = program.Window();
  window.resize(kWindowSize);
  QCursor::setPos(kWindowSize.width(), kWindowSize.height());  // over nothing that lights up
  window.show();
  program.OpenFromCommandLine({QString(), product});
  const QDir productFolder = QFileInfo(product).absoluteDir();
  return MainWindowPicture(window, folder) && FilePictures(window, productFolder, folder) &&
         PagePictures(window, folder) && WizardPictures(window, folder) &&
         ResultPicture(window, productFolder, folder) && EmptyVersionPictures(window, folder) &&
         StatePictures(window, folder);
}

}  // namespace

int main(int argc, char** argv) {
  const shell::GuardedApplication application(argc, argv);
  QApplication::setStyle(new tools::FocusStyle);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() < 3) {
    std::fputs("usage: screenshots PRODUCT FOLDER [dark]\n", stderr);
    return 2;
  }
  if (arguments.size() > 3) QApplication::setPalette(QPalette(QColor(50, 50, 50)));
  return MakePictures(QFileInfo(arguments.at(1)).absoluteFilePath(), QDir(arguments.at(2))) ? 0 : 1;
}
