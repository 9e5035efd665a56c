// Makes the documentation's pictures: opens a product in the real main window and stores what it
// looks like.
//
//   screenshots PRODUCT FOLDER
#include <QComboBox>
#include <QCursor>
#include <QDir>
#include <QFileInfo>
#include <QModelIndex>
#include <QMouseEvent>
#include <QTreeView>
#include <QTreeWidget>
#include <cstdio>

#include "app/DesktopProgram.h"
#include "model/TextTable.h"
#include "shell/GuardedApplication.h"
#include "tools/desktop/QtText.h"

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

bool MakePictures(const QString& product, const QDir& folder) {
  app::DesktopProgram program;
  shell::frmMain& window = program.Window();
  window.resize(kWindowSize);
  QCursor::setPos(kWindowSize.width(), kWindowSize.height());  // over nothing that lights up
  window.show();
  program.OpenFromCommandLine({QString(), product});
  ClickNode(*window.findChild<QTreeWidget*>(QStringLiteral("trvProjectTree")),
            QStringLiteral("v2c1"));
  // The files that go into the installation folder, with one of them selected.
  auto& target = *window.findChild<QComboBox*>(QStringLiteral("cmbDestinationFolder"));
  target.setCurrentIndex(
      target.findText(tools::ToQString(model::LoadText(270)), Qt::MatchContains));
  Q_EMIT target.activated(target.currentIndex());
  const auto& files = *window.findChild<QTreeView*>(QStringLiteral("lsvBrowser"));
  ClickRow(files, files.model()->index(0, 0));
  return StorePicture(window, folder, QStringLiteral("main-window"));
}

}  // namespace

int main(int argc, char** argv) {
  const shell::GuardedApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 3) {
    std::fputs("usage: screenshots PRODUCT FOLDER\n", stderr);
    return 2;
  }
  return MakePictures(QFileInfo(arguments.at(1)).absoluteFilePath(), QDir(arguments.at(2))) ? 0 : 1;
}
