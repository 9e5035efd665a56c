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
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <QTreeView>
#include <cstdio>

#include "app/DesktopProgram.h"
#include "docs/screenshots/Drive.h"
#include "model/TextTable.h"
#include "pages/EditorPage.h"
#include "shell/GuardedApplication.h"
#include "tools/desktop/FocusStyle.h"
#include "tools/desktop/wizard/WizardStructure.h"

namespace screenshots {

namespace {

constexpr QSize kWindowSize(1000, 640);

bool MainWindowPicture(shell::frmMain& window, const QDir& folder) {
  ClickNode(window, QStringLiteral("v2c1"));
  // The files that go into the installation folder, with one of them selected.
  ChooseFolder(window, model::Text::FolderInstallation);
  const auto& files = *window.findChild<QTreeView*>(QStringLiteral("lsvBrowser"));
  ClickRow(files, files.model()->index(0, 0));
  return StorePicture(window, folder, QStringLiteral("main-window"));
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
  ClickNode(window, QStringLiteral("v2"));
  return stored && PagePicture(window, 4, folder, QStringLiteral("page-build-options")) &&
         PagePicture(window, 5, folder, QStringLiteral("page-tessel"));
}

/// One picture of each page but the last, while the wizard is open.
bool WizardPictures(shell::frmMain& window, const QDir& folder) {
  ClickNode(window, QStringLiteral("v2"));
  bool stored = false;
  const auto turnPages = [&](QDialog& dialog) {
    auto& wizard = *qobject_cast<tools::WizardStructure*>(&dialog);
    stored = true;
    for (const char* page : {"intro", "configuration", "output", "packaging"}) {
      WaitWhile(wizard, QStringLiteral("lblCheck"), model::Text::CheckIsRunning);
      stored = stored && wizard.CurrentPage() == page &&
               StorePicture(wizard, folder, QStringLiteral("wizard-") + QLatin1String(page));
      wizard.findChild<QPushButton*>(QStringLiteral("cmdNext"))->click();
    }
    wizard.reject();
  };
  WithModals([&] { window.findChild<QAction*>(QStringLiteral("setupwiz"))->trigger(); },
             {turnPages});
  return stored;
}

/// A version without components, and the version to take some from. Adds version 1.2.0.
bool EmptyVersionPictures(shell::frmMain& window, const QDir& folder) {
  ClickNode(window, QStringLiteral("product"));
  WithModals([&] { window.findChild<QAction*>(QStringLiteral("mnuProductAddVersion"))->trigger(); },
             {[](QDialog& question) {
               question.findChild<QLineEdit*>()->setText(QStringLiteral("1.2.0"));
               question.accept();
             }});
  ClickNode(window, QStringLiteral("v3"));
  bool stored = StorePicture(window, folder, QStringLiteral("version-empty"));
  WithModals([&] { window.findChild<QAbstractButton*>(QStringLiteral("lnkTakeOver"))->click(); },
             {[&](QDialog& choice) {
               stored = stored && StorePicture(choice, folder, QStringLiteral("version-choice"));
               choice.reject();
             }});
  return stored;
}

/// What another program writes into the product's file meanwhile.
bool OutsidePicture(shell::frmMain& window, const QString& product, const QDir& folder) {
  ClickNode(window, QStringLiteral("product"));
  const auto replace = [&product](const char* what, const char* by) {
    QFile file(product);
    if (!file.open(QIODevice::ReadWrite)) return;
    const QByteArray text = file.readAll().replace(what, by);
    file.resize(0);
    file.seek(0);
    file.write(text);
  };
  replace("Lindner Messtechnik\n", "Lindner Messtechnik GmbH\n");
  QEvent activation(QEvent::WindowActivate);
  QCoreApplication::sendEvent(&window, &activation);
  const auto& bar = *window.findChild<QWidget*>(QStringLiteral("fraFileChanged"));
  while (!bar.isVisible()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  const bool stored = StorePicture(window, folder, QStringLiteral("file-changed"));
  replace("Lindner Messtechnik GmbH\n", "Lindner Messtechnik\n");
  bar.findChild<QAbstractButton*>(QStringLiteral("lnkReload"))->click();
  return stored;
}

/// The product's folder is out of reach for a while.
bool GonePicture(shell::frmMain& window, const QDir& product, const QDir& folder) {
  const QString away = product.path() + QStringLiteral(" (weg)");
  if (!QDir().rename(product.path(), away)) return false;
  ClickNode(window, QStringLiteral("v3"));
  const bool stored = StorePicture(window, folder, QStringLiteral("product-gone"));
  return QDir().rename(away, product.path()) && stored;
}

/// A changed page, and the start page after its product was closed.
bool StatePictures(shell::frmMain& window, const QDir& folder) {
  ClickNode(window, QStringLiteral("product"));
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
         BuildPictures(window, productFolder, folder) && EmptyVersionPictures(window, folder) &&
         OutsidePicture(window, product, folder) && GonePicture(window, productFolder, folder) &&
         StatePictures(window, folder);
}

}  // namespace

}  // namespace screenshots

int main(int argc, char** argv) {
  const shell::GuardedApplication application(argc, argv);
  QApplication::setStyle(new tools::FocusStyle);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() < 3) {
    std::fputs("usage: screenshots PRODUCT FOLDER [dark]\n", stderr);
    return 2;
  }
  if (arguments.size() > 3) QApplication::setPalette(QPalette(QColor(50, 50, 50)));
  return screenshots::MakePictures(QFileInfo(arguments.at(1)).absoluteFilePath(),
                                   QDir(arguments.at(2)))
             ? 0
             : 1;
}
