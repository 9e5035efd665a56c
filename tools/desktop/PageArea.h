// The place of a page in a window that may be too small for it.
#pragma once

class QScrollArea;
class QWidget;

namespace tools {

/// Shows the page, which takes all the room that there is, and can be scrolled where that is too
/// little; what the keyboard goes to comes into view. The scroll bar then stands in the place of
/// the right margin (pixels), not in the page's.
[[nodiscard]] QScrollArea* MakePageArea(QWidget* page, int rightMargin, QWidget* parent);

}  // namespace tools
