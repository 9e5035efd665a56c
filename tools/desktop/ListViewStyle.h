// The common look and behaviour of the program's list views in report view.
#pragma once

#include <QColor>
#include <QRect>
#include <QString>
#include <QStyledItemDelegate>

class QAbstractItemView;
class QPainter;
class QPalette;
class QStyleOptionViewItem;
class QTreeView;

namespace tools {

/// Rows without a tree's decoration, selected whole and one at a time; rows of equal height, so
/// that a list of thousands of rows is laid out at once; no key or click starts editing a cell;
/// long texts end in an ellipsis; fixed order of columns; the current row is the selected one. The
/// view has its model.
void ApplyListViewStyle(QTreeView& view);

/// How high a row of such a view is (pixels), before there is one.
[[nodiscard]] int RowHeight(const QTreeView& view);

/// The first row becomes the current and selected one when the list gets the focus without one, so
/// that keys have a row to act on. As long as the list has single selection, its current row stays
/// the selected one: when the row is removed, its neighbour becomes both; a click cannot deselect
/// it. The view has its model.
void SelectCurrentRow(QAbstractItemView& view);

/// How the lists draw a cell and show its tooltip: with a little air around each row, and tooltips
/// as the text they are - never read as HTML, as Qt does with a text that looks like it - and long
/// ones wrapped.
class ListItemDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
};

// Text that stands back behind the text beside it:

/// Between the colours of the text and of what lies behind it, in the item's state.
[[nodiscard]] QColor GreyedTextColor(const QStyleOptionViewItem& item);

/// The same for unselected items of that palette.
[[nodiscard]] QColor GreyedTextColor(const QPalette& palette);

/// Draws the text in that colour on one line within `place`, cut off where it is too long.
void DrawGreyedText(QPainter& painter, const QStyleOptionViewItem& item, const QRect& place,
                    Qt::Alignment alignment, const QString& text);

}  // namespace tools
