// Where the main window was when the program ended, as text in the preferences.
#pragma once

#include "tools/registry/Registry.h"

class QSplitter;
class QWidget;

namespace shell {

/// Stores the window's place and size and the splitter's position. Raises tools::Error.
void RememberWindowPlace(tools::Registry& registry, const QWidget& window,
                         const QSplitter& splitter);

/// Puts both back; a window whose screen is gone comes onto one that is there. What is not stored,
/// or cannot be used, leaves the window as it is.
void RestoreWindowPlace(tools::Registry& registry, QWidget& window, QSplitter& splitter);

}  // namespace shell
