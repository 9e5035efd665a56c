// Opens a menu over a list, by mouse and by key.
#pragma once

#include <QObject>

class QAbstractItemView;
class QMenu;

namespace pages {

/// A right click opens the menu where it is, once the list has selected the row there; the menu key
/// and Shift+F10 open it too. `menu` must outlive this object, which belongs to the list.
class ListPopup : public QObject {
  Q_OBJECT

 public:
  ListPopup(QAbstractItemView& list, QMenu& menu);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QAbstractItemView& list_;
  QMenu& menu_;
};

}  // namespace pages
