// The program's own icons, looked up by key, and the dot that marks what holds unsaved changes.
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

/// The dot alone.
[[nodiscard]] QIcon ChangeMark();
/// The icon with the dot in its lower right corner.
[[nodiscard]] QIcon WithChangeMark(const QIcon& icon);

}  // namespace shell
