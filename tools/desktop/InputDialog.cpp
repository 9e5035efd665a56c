#include "tools/desktop/InputDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "tools/desktop/FormStyle.h"

namespace tools {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTextBoxWidth = 380;  // pixels at least

}  // namespace

InputDialog::InputDialog(const QString& prompt, const QString& title, const QString& defaultText,
                         QWidget* parent)
    : QDialog(parent), txtInput_(new QLineEdit(defaultText, this)) {
  setObjectName(u"inputBox"_s);
  setWindowTitle(title);
  setFont(FormFont());

  auto* lblPrompt = new QLabel(prompt, this);
  lblPrompt->setObjectName(u"lblPrompt"_s);
  lblPrompt->setTextFormat(Qt::PlainText);
  lblPrompt->setWordWrap(true);

  txtInput_->setObjectName(u"txtInput"_s);
  txtInput_->setAccessibleName(prompt);
  txtInput_->setMinimumWidth(kTextBoxWidth);
  PrepareTextBox(*txtInput_);
  SelectAllText(*txtInput_);

  QDialogButtonBox* buttons = MakeOkCancelButtons(this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lblPrompt);
  layout->addWidget(txtInput_);
  layout->addStretch();
  layout->addSpacing(layout->spacing());
  layout->addWidget(buttons);
  txtInput_->setFocus();
}

QString InputDialog::Text() const { return txtInput_->text(); }

}  // namespace tools
