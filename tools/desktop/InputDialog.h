// The window that asks for one line of text.
#pragma once

#include <QDialog>

class QLineEdit;

namespace tools {

/// `lblPrompt` above the text box `txtInput`, whose default text is selected so that typing
/// replaces it; `cmdOK` and `cmdCancel`.
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
