// Shows which view has the keyboard: the selection of the others is pale.
#pragma once

#include <QColor>
#include <QProxyStyle>

namespace tools {

/// The desktop's own style but for the selected rows of trees and lists that have no focus: they
/// are drawn as those of an inactive window are, in a shade between ground and text that stands out
/// from both on light and dark desktops. Lists that pop up count as focused. The frame of the tree
/// or list that has the focus is coloured: it may have no row that could show it.
class FocusStyle : public QProxyStyle {
  Q_OBJECT

 public:
  using QProxyStyle::QProxyStyle;

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
};

/// Whether FocusStyle draws that row of `widget` as a pale selection.
[[nodiscard]] bool IsPaleSelection(const QStyleOption* option, const QWidget* widget);
/// The ground of such a row.
[[nodiscard]] QColor PaleSelection(const QPalette& palette);

}  // namespace tools
