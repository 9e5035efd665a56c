// The line above the file list that filters it and counts what it shows.
#pragma once

#include <QWidget>

#include "pages/FileListModel.h"

class QLabel;
class QLineEdit;
class QTreeView;

namespace pages {

/// `txtFilter` and `lblShown`. Escape empties the field; Down and Enter go on to the list.
class FileFilter : public QWidget {
  Q_OBJECT

 public:
  /// Filters `model`, which `list` shows; both must outlive this object's last event. Entries that
  /// were selected and are still shown stay selected.
  FileFilter(FileListModel& model, QTreeView& list);

  /// Puts the cursor into the field, its text selected.
  void Start();
  void Clear();
  /// Counts anew; `all` is the number of entries of the component.
  void ShowCount(std::size_t all);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Apply(const QString& text);

  FileListModel& model_;
  QTreeView& list_;
  std::size_t all_ = 0;
  QLineEdit* txtFilter;
  QLabel* lblShown;
};

/// The selected rows, ascending. Quick for many thousands, unlike the view's own list of them.
[[nodiscard]] std::vector<int> SelectedRows(const QTreeView& list);

/// Selects these rows (ascending) alone and brings the first into view.
void SelectRows(QTreeView& list, const std::vector<int>& rows);

}  // namespace pages
