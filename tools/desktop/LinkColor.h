// A colour for links that can be read on their ground.
#pragma once

#include <QColor>

namespace tools {

/// `link` when it can be read on `ground`; else as much of it as can be, mixed with `text`.
/// Palettes of dark desktops often know no colour for links, and Qt's own is a dark blue.
[[nodiscard]] QColor LinkColor(const QColor& link, const QColor& text, const QColor& ground);

}  // namespace tools
