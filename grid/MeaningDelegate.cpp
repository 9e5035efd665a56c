#include "grid/MeaningDelegate.h"

#include <QApplication>
#include <QPainter>

#include "tools/desktop/GreyedText.h"

namespace grid {

void MeaningDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
  ListItemDelegate::paint(painter, option, index);
  const QString meaning = index.data(kMeaningRole).toString();
  if (meaning.isEmpty()) return;
  QStyleOptionViewItem item = option;
  initStyleOption(&item, index);
  const QStyle& style = item.widget != nullptr ? *item.widget->style() : *QApplication::style();
  QRect place = style.subElementRect(QStyle::SE_ItemViewItemText, &item, item.widget);
  const int gap = item.fontMetrics.averageCharWidth() * 2;
  place.setLeft(place.left() + item.fontMetrics.horizontalAdvance(item.text) + gap);
  if (place.width() < gap) return;
  tools::DrawGreyedText(*painter, item, place, Qt::AlignLeft | Qt::AlignVCenter, meaning);
}

}  // namespace grid
