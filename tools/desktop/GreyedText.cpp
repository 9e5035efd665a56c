#include "tools/desktop/GreyedText.h"

#include <QPainter>
#include <QStyleOptionViewItem>

namespace tools {

namespace {

constexpr int kTextPercent = 62;  ///< of the mixture; less would be hard to read

int Mix(int text, int base) { return (text * kTextPercent + base * (100 - kTextPercent)) / 100; }

QColor Mixed(const QColor& text, const QColor& base) {
  return {Mix(text.red(), base.red()), Mix(text.green(), base.green()),
          Mix(text.blue(), base.blue())};
}

}  // namespace

QColor GreyedTextColor(const QStyleOptionViewItem& item) {
  const bool isSelected = (item.state & QStyle::State_Selected) != 0;
  const QPalette::ColorGroup group =
      (item.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
  const QColor text =
      item.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
  const QColor base = item.palette.color(group, isSelected ? QPalette::Highlight : QPalette::Base);
  return Mixed(text, base);
}

QColor GreyedTextColor(const QPalette& palette) {
  return Mixed(palette.color(QPalette::Text), palette.color(QPalette::Base));
}

void DrawGreyedText(QPainter& painter, const QStyleOptionViewItem& item, const QRect& place,
                    Qt::Alignment alignment, const QString& text) {
  painter.save();
  painter.setFont(item.font);
  painter.setPen(GreyedTextColor(item));
  painter.drawText(place, static_cast<int>(alignment) | Qt::TextSingleLine,
                   item.fontMetrics.elidedText(text, Qt::ElideRight, place.width()));
  painter.restore();
}

}  // namespace tools
