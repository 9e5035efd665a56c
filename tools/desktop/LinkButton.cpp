#include "tools/desktop/LinkButton.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <algorithm>

#include "tools/desktop/LinkColor.h"

namespace tools {

namespace {

constexpr int kMargin = 3;           // pixels around the text, for the focus frame
constexpr int kLeastCharacters = 8;  // that are seen of a long text

}  // namespace

LinkButton::LinkButton(const QString& text, QWidget* parent) : QAbstractButton(parent) {
  setText(text);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  // It has no ground of its own, as other buttons have.
  setBackgroundRole(QPalette::NoRole);
  setForegroundRole(QPalette::NoRole);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize LinkButton::sizeHint() const {
  return {fontMetrics().horizontalAdvance(text()) + 2 * kMargin + 1,
          fontMetrics().height() + 2 * kMargin};
}

QSize LinkButton::minimumSizeHint() const {
  const int least = fontMetrics().averageCharWidth() * kLeastCharacters;
  return {std::min(sizeHint().width(), least), sizeHint().height()};
}

void LinkButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QFont underlined = font();
  underlined.setUnderline(isEnabled());
  painter.setFont(underlined);
  const QColor plain = palette().color(QPalette::Active, foregroundRole());
  const QColor ground = palette().color(backgroundRole());
  // A link to nowhere is grey, and can be read all the same.
  const QColor own = palette().color(isEnabled() ? QPalette::Link : foregroundRole());
  painter.setPen(LinkColor(own, plain, ground));
  const QRect area = rect().adjusted(kMargin, 0, -kMargin, 0);
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, area.width());
  painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
  if (!hasFocus()) return;
  QStyleOptionFocusRect frame;
  frame.initFrom(this);
  frame.rect.setWidth(std::min(width(), fontMetrics().horizontalAdvance(shown) + 2 * kMargin));
  frame.state |= QStyle::State_KeyboardFocusChange;
  frame.backgroundColor = palette().color(QPalette::Window);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
}

void LinkButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

}  // namespace tools
