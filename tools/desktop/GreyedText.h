// Text that stands back behind the text beside it, in lists.
#pragma once

#include <QColor>
#include <QRect>
#include <QString>

class QPainter;
class QPalette;
class QStyleOptionViewItem;

namespace tools {

/// Between the colours of the text and of what lies behind it, in the item's state.
[[nodiscard]] QColor GreyedTextColor(const QStyleOptionViewItem& item);

/// The same for unselected items of that palette.
[[nodiscard]] QColor GreyedTextColor(const QPalette& palette);

/// Draws the text in that colour on one line within `place`, cut off where it is too long.
void DrawGreyedText(QPainter& painter, const QStyleOptionViewItem& item, const QRect& place,
                    Qt::Alignment alignment, const QString& text);

}  // namespace tools
