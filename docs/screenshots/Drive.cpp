#include "docs/screenshots/Drive.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QTabBar>
#include <QTimer>
#include <cstdio>

#include "tools/desktop/QtText.h"

namespace screenshots {

namespace {

void SendMouse(const QAbstractItemView& view, const QModelIndex& row, QEvent::Type type) {
  QWidget* rows = view.viewport();
  const QPointF place = view.visualRect(row).center();
  QMouseEvent event(type, place, rows->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                    Qt::NoModifier);
  QCoreApplication::sendEvent(rows, &event);
}

bool Save(const QPixmap& picture, const QDir& folder, const QString& name) {
  const QString path = folder.filePath(name + QStringLiteral(".png"));
  if (picture.save(path)) return true;
  std::fprintf(stderr, "cannot write %s\n", qUtf8Printable(path));
  return false;
}

}  // namespace

void ClickRow(const QAbstractItemView& view, const QModelIndex& row) {
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    SendMouse(view, row, type);
  }
}

void DoubleClickRow(QAbstractItemView& view, const QModelIndex& row) {
  view.scrollTo(row);
  ClickRow(view, row);
  SendMouse(view, row, QEvent::MouseButtonDblClick);
}

void ClickNode(const shell::frmMain& window, const QString& key) {
  const auto& tree = *window.findChild<QTreeWidget*>(QStringLiteral("trvProjectTree"));
  const QModelIndexList nodes = tree.model()->match(tree.model()->index(0, 0), Qt::UserRole, key, 1,
                                                    Qt::MatchExactly | Qt::MatchRecursive);
  if (!nodes.isEmpty()) ClickRow(tree, nodes.front());
}

void PressKey(QWidget& widget, Qt::Key key) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &press);
}

void ChooseFolder(const QWidget& window, model::Text folder) {
  auto& target = *window.findChild<QComboBox*>(QStringLiteral("cmbDestinationFolder"));
  target.setCurrentIndex(
      target.findText(tools::ToQString(model::LoadText(folder)), Qt::MatchContains));
  Q_EMIT target.activated(target.currentIndex());
}

bool StorePicture(QWidget& window, const QDir& folder, const QString& name) {
  QCoreApplication::processEvents();
  (void)window.grab();  // lays out what has changed
  QCoreApplication::processEvents();
  return Save(window.grab(), folder, name);
}

bool StoreWithPopup(QWidget& window, QWidget& popup, const QDir& folder, const QString& name) {
  QCoreApplication::processEvents();
  const QRect both = window.geometry().united(popup.geometry());
  QPixmap picture(both.size() * window.devicePixelRatioF());
  picture.setDevicePixelRatio(window.devicePixelRatioF());
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  for (QWidget* part : {&window, &popup}) {
    painter.drawPixmap(part->geometry().topLeft() - both.topLeft(), part->grab());
  }
  painter.end();
  return Save(picture, folder, name);
}

bool PagePicture(const QWidget& window, int position, const QDir& folder, const QString& name) {
  window.findChild<QTabBar*>(QStringLiteral("tabDataEditor"))->setCurrentIndex(position - 1);
  return StorePicture(*window.findChild<QWidget*>(QStringLiteral("EditorTab%1").arg(position)),
                      folder, name);
}

void WithModals(const std::function<void()>& open, const std::vector<Act>& acts) {
  const QWidget* below = QApplication::activeModalWidget();
  QPointer<QWidget> last;
  auto act = acts.begin();
  QTimer wait;
  QObject::connect(&wait, &QTimer::timeout, &wait, [&] {
    auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (window == nullptr || window == below || window == last)
      return;  // the next one has not come yet
    last = window;
    const Act& now = *act++;
    if (act == acts.end()) wait.stop();
    now(*window);
  });
  wait.start(0);
  open();
}

void WaitWhile(const QWidget& window, const QString& label, model::Text text) {
  const auto* shown = window.findChild<QLabel*>(label);
  const QString awaited = tools::ToQString(model::LoadText(text));
  while (shown != nullptr && shown->isVisible() && shown->text().contains(awaited)) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
}

}  // namespace screenshots
