// The rows of a property grid, as the model of its list view.
#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QString>
#include <vector>

namespace grid {

/// One property. The texts of the tooltips are empty for a row without tooltips.
struct PropertyRow {
  QString key;  ///< unique within the grid, compared exactly
  QString title;
  QString value;
  QString meaning;  ///< of the value; empty where none is known
  QString titleTip;
  QString valueTip;
  bool isMixed = false;  ///< the empty value stands for several ones that differ
};

/// "2001  Installationsordner"; the value alone without a meaning.
[[nodiscard]] QString WithMeaning(const QString& value, const QString& meaning);

/// Two columns: title and value, which carries its meaning as kMeaningRole. Rows stand in the order
/// in which they were added; a row is found by its key without a search.
class PropertyRows : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { kTitle, kValue, kColumnCount };

  using QAbstractTableModel::QAbstractTableModel;

  /// The row with that key; -1 when there is none.
  [[nodiscard]] int RowOf(const QString& key) const;
  /// The property in that row, which must exist.
  [[nodiscard]] const PropertyRow& At(int row) const;

  /// Adds a row at the end; its key must not be present.
  void Append(PropertyRow property);
  /// Replaces the value, its meaning and its tooltip; it is no mixed one any more.
  void SetValue(int row, const QString& value, const QString& meaning, const QString& valueTip);
  /// Makes it a mixed one.
  void Mix(int row, const QString& valueTip);
  void Remove(int row);
  void Clear();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::vector<PropertyRow> rows_;
  QHash<QString, int> rowOf_;  ///< by key
};

}  // namespace grid
