#include "shell/IconList.h"

#include <QFile>

#include "shell/SvgIconEngine.h"

// A static library's resources are only linked in when somebody asks for them, and Qt's macro for
// that works outside namespaces only.
static void InitialiseIcons() { Q_INIT_RESOURCE(icons); }

namespace shell {

IconList::IconList() { InitialiseIcons(); }

QIcon IconList::Icon(const QString& key) const {
  QFile file(QStringLiteral(":/icons/%1.svg").arg(key));
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QIcon(new SvgIconEngine(file.readAll()));
}

}  // namespace shell
