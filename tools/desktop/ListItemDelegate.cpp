#include "tools/desktop/ListItemDelegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>

namespace tools {

namespace {

constexpr int kRowPadding = 6;  // pixels, above and below together

}  // namespace

QSize ListItemDelegate::sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
  return QStyledItemDelegate::sizeHint(option, index) + QSize(0, kRowPadding);
}

bool ListItemDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                 const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip) {
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  }
  const QString text = index.data(Qt::ToolTipRole).toString();
  const QString shown =
      text.isEmpty() ? QString() : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
  QToolTip::showText(event->globalPos(), shown, view, view->visualRect(index));
  return true;
}

}  // namespace tools
