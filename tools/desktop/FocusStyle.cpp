#include "tools/desktop/FocusStyle.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QStyleOptionViewItem>

namespace tools {

namespace {

constexpr double kShade = 0.25;  // of the text's colour in the pale selection

QColor Blend(const QColor& ground, const QColor& ink) {
  const auto mix = [](int a, int b) { return static_cast<int>(a + (b - a) * kShade); };
  return {mix(ground.red(), ink.red()), mix(ground.green(), ink.green()),
          mix(ground.blue(), ink.blue())};
}

bool HasFocus(const QAbstractItemView& view) {
  if (view.window()->windowType() == Qt::Popup) return true;
  const QWidget* focused = QApplication::focusWidget();
  // Under a menu, the keyboard comes back to the view.
  const bool isMenu = focused != nullptr && focused->window()->windowType() == Qt::Popup;
  if (isMenu) focused = view.window()->focusWidget();
  return focused != nullptr && (focused == &view || view.isAncestorOf(focused));
}

bool IsFramed(const QWidget* widget) {
  const auto* view = qobject_cast<const QAbstractItemView*>(widget);
  return view != nullptr && view->window()->windowType() != Qt::Popup && HasFocus(*view);
}

QStyleOptionViewItem Pale(const QStyleOption& option) {
  QStyleOptionViewItem pale;
  if (const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(&option)) {
    pale = *item;
  } else {
    pale.QStyleOption::operator=(option);
  }
  pale.state.setFlag(QStyle::State_Active, false);
  const QColor text = pale.palette.color(QPalette::Active, QPalette::Text);
  pale.palette.setColor(QPalette::Inactive, QPalette::Highlight, PaleSelection(pale.palette));
  pale.palette.setColor(QPalette::Inactive, QPalette::HighlightedText, text);
  return pale;
}

}  // namespace

bool IsPaleSelection(const QStyleOption* option, const QWidget* widget) {
  if (option == nullptr || !option->state.testFlag(QStyle::State_Selected)) return false;
  const auto* view = qobject_cast<const QAbstractItemView*>(widget);
  return view != nullptr && view->isEnabled() && !HasFocus(*view);
}

QColor PaleSelection(const QPalette& palette) {
  return Blend(palette.color(QPalette::Active, QPalette::Base),
               palette.color(QPalette::Active, QPalette::Text));
}

void FocusStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  const bool isRow = element == PE_PanelItemViewRow || element == PE_PanelItemViewItem ||
                     element == PE_IndicatorBranch;
  if (isRow && IsPaleSelection(option, widget)) {
    const QStyleOptionViewItem pale = Pale(*option);
    QProxyStyle::drawPrimitive(element, &pale, painter, widget);
  } else {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void FocusStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  if (element == CE_ItemViewItem && IsPaleSelection(option, widget)) {
    const QStyleOptionViewItem pale = Pale(*option);
    QProxyStyle::drawControl(element, &pale, painter, widget);
    return;
  }
  QProxyStyle::drawControl(element, option, painter, widget);
  if (element == CE_ShapedFrame && IsFramed(widget)) {
    painter->save();
    painter->setPen(option->palette.color(QPalette::Active, QPalette::Highlight));
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
  }
}

}  // namespace tools
