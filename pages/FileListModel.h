// The file entries of one destination folder as the rows of a list view.
#pragma once

#include <QAbstractTableModel>
#include <cstdint>
#include <string_view>
#include <vector>

#include "model/FileEntries.h"

namespace pages {

/// Two columns: the source file's path, and the place at the destination as the installation
/// script names it. A row refers to its entry and copies nothing, so that a component of many
/// thousand entries is shown at once.
class FileListModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { kFileName, kTarget, kColumnCount };

  using QAbstractTableModel::QAbstractTableModel;

  /// Shows the entries with this destination folder, in the collection's order. They must stay
  /// where they are until the next Show.
  void Show(const model::FileEntries& entries, std::int32_t targetFolder);

  /// The entry in that row, which must exist.
  [[nodiscard]] const model::ICFile& EntryAt(int row) const;
  /// The row of the entry with that ID; -1 when it is not shown.
  [[nodiscard]] int RowOf(std::string_view id) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::vector<const model::ICFile*> shown_;
};

}  // namespace pages
