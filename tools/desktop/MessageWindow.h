// A message box as a window.
#pragma once

#include "tools/Dialogs.h"

class QWidget;

namespace tools {

/// Shows `message` over `owner` until the user answers. The box is named `messageBox`, its buttons
/// `cmdOK`, `cmdCancel`, `cmdYes` and `cmdNo`.
MessageAnswer RunMessageBox(const Message& message, QWidget* owner);

}  // namespace tools
