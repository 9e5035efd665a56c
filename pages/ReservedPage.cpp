#include "pages/ReservedPage.h"

#include <QPainter>

#include "pages/PageText.h"

namespace pages {

ReservedPage::ReservedPage(QWidget* parent) : EditorPage(parent) {
  setAccessibleDescription(Caption(Text::PageIsReserved));
}

void ReservedPage::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::PlaceholderText));
  const int margin = fontMetrics().height();
  painter.drawText(rect().adjusted(margin, 2 * margin, -margin, -margin),
                   Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                   Caption(Text::PageIsReserved));
}

}  // namespace pages
