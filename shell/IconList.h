// The program's own icons, looked up by key.
#pragma once

#include <QIcon>
#include <QString>

namespace shell {

/// The pictures under resources/icons, which the program carries in itself.
class IconList {
 public:
  IconList();

  /// The icon of that key: a toolbar button's key, a tree node's tag, or "packwright" for the
  /// program's own; an icon without a picture for any other key.
  [[nodiscard]] QIcon Icon(const QString& key) const;
};

}  // namespace shell
