// The small modal windows: a message, and the question for one line of text.
#pragma once

#include <QDialog>

#include "tools/Dialogs.h"

class QLineEdit;
class QWidget;

namespace tools {

/// Shows `message` over `owner` until the user answers. The box is named `messageBox`, its buttons
/// `cmdOK`, `cmdCancel`, `cmdYes` and `cmdNo`.
MessageAnswer RunMessageBox(const Message& message, QWidget* owner);

/// Asks for one line of text: `lblPrompt` above the text box `txtInput`, whose default text is
/// selected so that typing replaces it; `cmdOK` and `cmdCancel`.
class InputDialog : public QDialog {
  Q_OBJECT

 public:
  InputDialog(const QString& prompt, const QString& title, const QString& defaultText,
              QWidget* parent);

  /// What stands in the text box.
  [[nodiscard]] QString Text() const;

 private:
  QLineEdit* txtInput_;
};

}  // namespace tools
