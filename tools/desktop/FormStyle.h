// What the program's forms have in common.
#pragma once

#include <QFont>

class QDialogButtonBox;
class QLineEdit;
class QWidget;

namespace tools {

/// The font of the forms: Tahoma where the machine has it, else the desktop's own; in the
/// desktop's size.
[[nodiscard]] QFont FormFont();

void SelectAllText(QLineEdit& textBox);

/// Lifts the text box's limit of 32,767 characters, beyond which it would cut texts off silently.
void AllowAnyLength(QLineEdit& textBox);

/// The buttons `cmdOK` (the default one, standard text 110) and `cmdCancel` (standard text 111) in
/// the platform's order. The box emits accepted() and rejected(); it belongs to `parent`.
[[nodiscard]] QDialogButtonBox* MakeOkCancelButtons(QWidget* parent);

}  // namespace tools
