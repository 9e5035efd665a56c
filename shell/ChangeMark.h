// The mark of what holds changes that are not saved: a dot.
#pragma once

#include <QIcon>

namespace shell {

/// The dot alone.
[[nodiscard]] QIcon ChangeMark();
/// The icon with the dot in its lower right corner.
[[nodiscard]] QIcon WithChangeMark(const QIcon& icon);

}  // namespace shell
