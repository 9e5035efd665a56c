#include "shell/IconList.h"

#include <QFile>

#include "shell/PictureIconEngine.h"

// A static library's resources are only linked in when somebody asks for them, and Qt's macro for
// that works outside namespaces only.
static void InitialiseIcons() { Q_INIT_RESOURCE(icons); }

namespace shell {

IconList::IconList() { InitialiseIcons(); }

QIcon IconList::Icon(const QString& key) const {
  const QString black = QStringLiteral(":/icons/black/%1.png").arg(key);
  if (!QFile::exists(black)) return {};
  const QString white = QStringLiteral(":/icons/white/%1.png").arg(key);
  return QIcon(new PictureIconEngine(black, white));
}

}  // namespace shell
