// Opens the menus of lists and nodes.
#pragma once

#include <QMenu>
#include <algorithm>
#include <cstdint>

namespace tools {

enum class OpenedBy : std::uint8_t { Mouse, Key };

/// A menu that a key opens has its first item chosen: arrows, Enter and screen readers go on from
/// there.
inline void PopUpMenu(QMenu& menu, const QPoint& globalPosition, OpenedBy by) {
  menu.popup(globalPosition);
  if (by == OpenedBy::Mouse) return;
  const QList<QAction*> actions = menu.actions();
  const auto first = std::find_if(actions.begin(), actions.end(), [](const QAction* action) {
    return action->isVisible() && action->isEnabled() && !action->isSeparator();
  });
  if (first != actions.end()) menu.setActiveAction(*first);
}

}  // namespace tools
