// What the program's forms have in common.
#pragma once

#include <QFont>
#include <QString>

class QComboBox;
class QDialogButtonBox;
class QFontMetrics;
class QLineEdit;
class QWidget;

namespace tools {

/// The font of the forms: Tahoma where the machine has it, else the desktop's own; in the
/// desktop's size.
[[nodiscard]] QFont FormFont();

void SelectAllText(QLineEdit& textBox);

/// Makes the text box hold what a setting can hold: one line of any length. Its own limit would cut
/// texts off after 32,767 characters silently; a line break that is pasted becomes a blank.
void PrepareTextBox(QLineEdit& textBox);

/// Gives each word of the text that is wider than `width` pixels invisible places to break.
[[nodiscard]] QString WithBreaksInLongWords(const QString& text, const QFontMetrics& metrics,
                                            int width);

/// Keeps the mouse wheel from choosing another entry while the pointer only passes over the box.
void IgnoreWheelWithoutFocus(QComboBox& box);

/// Names an editable box for screen readers, and the text box in it, which has the focus.
void NameEditableBox(QComboBox& box, const QString& name);

/// The buttons `cmdOK` (the default one, standard text 110) and `cmdCancel` (standard text 111) in
/// the platform's order. The box emits accepted() and rejected(); it belongs to `parent`.
[[nodiscard]] QDialogButtonBox* MakeOkCancelButtons(QWidget* parent);

}  // namespace tools
