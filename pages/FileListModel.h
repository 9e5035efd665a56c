// The file entries of one destination folder as the rows of a list view.
#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <QString>
#include <cstdint>
#include <map>
#include <string>
#include <unordered_set>
#include <vector>

#include "model/FileEntries.h"
#include "pages/SourceCheck.h"

namespace pages {

/// Two columns: the source file's path, and the place at the destination as the installation
/// script names it. A row refers to its entry and copies nothing, so that a component of many
/// thousand entries is shown at once. Entries that builds leave out are greyed. Rows stand in the
/// collection's order unless they are sorted.
class FileListModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { kFileName, kTarget, kColumnCount };

  using QAbstractTableModel::QAbstractTableModel;

  /// Shows the entries with this destination folder. All entries must stay where they are until the
  /// next Show. `changed` is quicker: those that alone have changed since the last one, none if
  /// that is not known.
  void Show(const model::FileEntries& entries, std::int32_t targetFolder,
            const std::vector<const model::ICFile*>& changed = {});
  /// Shows those of another destination folder, out of the same entries.
  void ShowFolder(std::int32_t targetFolder);
  /// Shows only those whose source path holds every word of the text, in any case.
  void SetFilter(const QString& text);
  [[nodiscard]] bool HasFilter() const { return !words_.isEmpty(); }
  /// Marks entries whose sources are missing, and takes the marks from those whose are not.
  void Mark(const std::vector<SourceState>& states);
  /// The number of entries with this destination folder, whether the filter shows them or not.
  [[nodiscard]] int CountInFolder() const;

  /// How many entries each folder gets, by its number.
  [[nodiscard]] std::map<std::int32_t, int> FolderCounts() const;

  /// The entry in that row, which must exist.
  [[nodiscard]] const model::ICFile& EntryAt(int row) const;
  /// The rows of those of these entries that are shown, ascending.
  [[nodiscard]] std::vector<int> RowsOf(std::vector<const model::ICFile*> entries) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  /// By the texts of that column as a reader of German orders them, numbers in them by value; -1
  /// gives the collection's order.
  void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

 private:
  using Rows = std::vector<const model::ICFile*>;

  [[nodiscard]] QVariant FileNameData(const model::ICFile& entry, int role) const;
  void Group(const model::FileEntries& entries);
  [[nodiscard]] bool AreGrouped(const Rows& entries, std::size_t count) const;
  void Arrange();
  void SortRows();
  [[nodiscard]] bool PassesFilter(const model::ICFile& entry) const;

  std::map<std::int32_t, Rows> byFolder_;  ///< in the collection's order; no folder without any
  std::int32_t folder_ = 0;                ///< that is shown
  Rows shown_;
  std::unordered_set<std::string> missing_;  ///< IDs of entries whose sources are
  QIcon missingIcon_;                        ///< made when it is first needed
  QStringList words_;
  int sortColumn_ = -1;
  Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
};

}  // namespace pages
