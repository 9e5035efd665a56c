// Files and folders that the author drags onto a page from outside.
#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <vector>

class QDropEvent;
class QWidget;

namespace pages {

struct DroppedPaths {
  std::vector<std::string> files;
  std::vector<std::string> folders;
};

/// Belongs to the widget that it watches; what its children do not take themselves counts as
/// dropped on it.
class FileDrop : public QObject {
  Q_OBJECT

 public:
  explicit FileDrop(QWidget& target);

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  /// Comes when the other program is free again, so that questions may be asked.
  void Dropped(const DroppedPaths& paths);
};

}  // namespace pages
