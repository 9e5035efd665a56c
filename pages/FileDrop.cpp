#include "pages/FileDrop.h"

#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <QWidget>
#include <algorithm>

#include "tools/desktop/QtText.h"

namespace pages {

namespace {

bool HoldsLocalFiles(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  return std::any_of(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
}

DroppedPaths PathsOf(const QMimeData& data) {
  DroppedPaths paths;
  for (const QUrl& url : data.urls()) {
    if (!url.isLocalFile()) continue;
    const QFileInfo file(url.toLocalFile());
    const QString path = QDir::toNativeSeparators(QDir::cleanPath(file.absoluteFilePath()));
    (file.isDir() ? paths.folders : paths.files).push_back(tools::ToUtf8(path));
  }
  return paths;
}

}  // namespace

FileDrop::FileDrop(QWidget& target) : QObject(&target) {
  target.setAcceptDrops(true);
  target.installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) {
    return QObject::eventFilter(watched, event);
  }
  auto& drop = static_cast<QDropEvent&>(*event);
  // Files are only named here: a source that moves them would remove them.
  if (!drop.possibleActions().testFlag(Qt::CopyAction) || !HoldsLocalFiles(*drop.mimeData())) {
    return false;
  }
  drop.setDropAction(Qt::CopyAction);
  drop.accept();
  if (type == QEvent::Drop) {
    QMetaObject::invokeMethod(
        this, [this, paths = PathsOf(*drop.mimeData())] { Q_EMIT Dropped(paths); },
        Qt::QueuedConnection);
  }
  return true;
}

}  // namespace pages
