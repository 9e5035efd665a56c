#include <QAction>
#include <QCheckBox>
#include <QCoreApplication>
#include <QDialog>
#include <QEventLoop>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>

#include "docs/screenshots/Drive.h"
#include "tools/Dialogs.h"
#include "tools/Progress.h"
#include "tools/desktop/QtText.h"

namespace screenshots {

namespace {

using model::Text;

QPushButton& Button(const QWidget& window, const char* name) {
  return *window.findChild<QPushButton*>(QString::fromLatin1(name));
}

void Check(const shell::frmMain& window) {
  window.findChild<QAction*>(QStringLiteral("mnuVersionCheck"))->trigger();
  WaitWhile(window, QStringLiteral("lblOutcome"), Text::CheckIsRunning);
}

/// What the check of a version with a missing source finds, and where it leads.
bool CheckPictures(shell::frmMain& window, const QDir& folder) {
  ClickNode(window, QStringLiteral("v2"));
  Check(window);
  bool stored = StorePicture(window, folder, QStringLiteral("result-check"));
  auto& findings = *window.findChild<QAbstractItemView*>(QStringLiteral("lsvFindings"));
  DoubleClickRow(findings, findings.model()->index(0, 0));
  const auto& files = *window.findChild<QAbstractItemView*>(QStringLiteral("lsvBrowser"));
  while (!files.currentIndex().data(Qt::DecorationRole).isValid()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  return stored && PagePicture(window, 1, folder, QStringLiteral("file-missing"));
}

/// Builds a version packed into a folder of the product, by the wizard.
void Build(const shell::frmMain& window, const QString& version, const QString& output) {
  ClickNode(window, version);
  const auto finish = [&](QDialog& wizard) {
    QPushButton& next = Button(wizard, "cmdNext");
    for (int i = 0; i < 2; ++i) next.click();
    wizard.findChild<QLineEdit*>(QStringLiteral("txtFolder"))->setText(output);
    next.click();
    wizard.findChild<QCheckBox*>(QStringLiteral("chkMakeZip"))->click();
    next.click();
    WithModals([&] { Button(wizard, "cmdFinish").click(); },
               {[](QDialog& errors) { errors.accept(); }, [](QDialog& end) { end.accept(); }});
  };
  WithModals([&] { window.findChild<QAction*>(QStringLiteral("setupwiz"))->trigger(); }, {finish});
}

/// The notice of a build while it runs.
bool NoticePicture(shell::frmMain& window, const QDir& folder) {
  tools::StoppableNotice notice(window.Dialogs(), model::LoadText(Text::BuildingSetup),
                                model::LoadText(Text::ReallyStopBuild));
  notice.Update(
      {.filesDone = 318, .filesTotal = 500, .bytesDone = 61'000'000, .bytesTotal = 96'000'000});
  return StorePicture(*window.findChild<QDialog*>(QStringLiteral("busyNotice")), folder,
                      QStringLiteral("build-notice"));
}

}  // namespace

bool BuildPictures(shell::frmMain& window, const QDir& product, const QDir& folder) {
  Build(window, QStringLiteral("v1"), QStringLiteral("Ausgabe/1.0.0"));
  const QString source = product.filePath(QStringLiteral("Quellen/Programm/Liesmich.txt"));
  const QString moved = source + QLatin1Char('~');
  QFile::rename(source, moved);
  bool stored = CheckPictures(window, folder) && NoticePicture(window, folder);
  Build(window, QStringLiteral("v2"), QStringLiteral("Ausgabe/1.1.0"));
  QFile::rename(moved, source);
  stored = stored && StorePicture(window, folder, QStringLiteral("result-build"));
  const auto& panel = *window.findChild<QWidget*>(QStringLiteral("pnlResult"));
  const auto store = [&](QDialog& text, const char* name) {
    stored = stored && StorePicture(text, folder, QString::fromLatin1(name));
    text.accept();
  };
  WithModals([&] { Button(panel, "cmdShowLog").click(); },
             {[&](QDialog& log) { store(log, "build-log"); }});
  const auto choose = [&](QDialog& dialog) {
    dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
        ->setText(product.filePath(QStringLiteral("Ausgabe/1.0.0")));
    QMetaObject::invokeMethod(&dialog, "accept");
  };
  WithModals([&] { Button(panel, "cmdCompare").click(); },
             {choose, [&](QDialog& comparison) { store(comparison, "comparison"); }});
  window.findChild<QWidget*>(QStringLiteral("pnlResult"))->hide();
  return stored;
}

}  // namespace screenshots
