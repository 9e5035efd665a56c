// Draws values with their meanings behind them.
#pragma once

#include "tools/desktop/ListViewStyle.h"

namespace grid {

/// The item's role that says what its value means; empty for a value without a known meaning.
inline constexpr int kMeaningRole = Qt::UserRole + 1;

/// "2001  Installationsordner", the meaning greyed.
class MeaningDelegate : public tools::ListItemDelegate {
  Q_OBJECT

 public:
  using ListItemDelegate::ListItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

}  // namespace grid
