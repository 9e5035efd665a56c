#include "grid/PropertyRows.h"

#include <utility>

#include "grid/KnownValues.h"

namespace grid {

using namespace Qt::StringLiterals;

QString WithMeaning(const QString& value, const QString& meaning) {
  return meaning.isEmpty() ? value : value + u"  "_s + meaning;
}

int PropertyRows::RowOf(const QString& key) const { return rowOf_.value(key, -1); }

const PropertyRow& PropertyRows::At(int row) const { return rows_.at(static_cast<size_t>(row)); }

void PropertyRows::Append(PropertyRow property) {
  const int row = rowCount();
  beginInsertRows({}, row, row);
  rowOf_.insert(property.key, row);
  rows_.push_back(std::move(property));
  endInsertRows();
}

void PropertyRows::SetValue(int row, const QString& value, const QString& meaning,
                            const QString& valueTip) {
  PropertyRow& property = rows_.at(static_cast<size_t>(row));
  property.value = value;
  property.meaning = meaning;
  property.valueTip = valueTip;
  property.isMixed = false;
  const QModelIndex changed = index(row, kValue);
  Q_EMIT dataChanged(changed, changed);
}

void PropertyRows::Mix(int row, const QString& valueTip) {
  SetValue(row, QString(), QString(), valueTip);
  rows_[static_cast<std::size_t>(row)].isMixed = true;
}

void PropertyRows::Remove(int row) {
  beginRemoveRows({}, row, row);
  rowOf_.remove(At(row).key);
  rows_.erase(rows_.begin() + row);
  for (int moved = row; moved < rowCount(); ++moved) rowOf_[At(moved).key] = moved;
  endRemoveRows();
}

void PropertyRows::Clear() {
  beginResetModel();
  rows_.clear();
  rowOf_.clear();
  endResetModel();
}

int PropertyRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int PropertyRows::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumnCount;
}

QVariant PropertyRows::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const PropertyRow& property = At(index.row());
  const bool isTitle = index.column() == kTitle;
  if (role == Qt::DisplayRole) return isTitle ? property.title : property.value;
  if (role == Qt::ToolTipRole) return isTitle ? property.titleTip : property.valueTip;
  if (isTitle || property.meaning.isEmpty()) return {};
  if (role == kMeaningRole) return property.meaning;
  if (role == Qt::AccessibleTextRole) return WithMeaning(property.value, property.meaning);
  return {};
}

QVariant PropertyRows::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return section == kTitle ? u"Name"_s : u"Value"_s;
}

}  // namespace grid
