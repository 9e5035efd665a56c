// How the program's lists draw a cell and show its tooltip.
#pragma once

#include <QStyledItemDelegate>

namespace tools {

/// Leaves a little air around each row. Tooltips are shown as the text they are - never read as
/// HTML, as Qt does with a text that looks like it - and long ones are wrapped.
class ListItemDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
};

}  // namespace tools
