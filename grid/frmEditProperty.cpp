#include "grid/frmEditProperty.h"

#include <QAbstractItemView>
#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "grid/KnownValues.h"
#include "tools/desktop/FormStyle.h"

namespace grid {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTextBoxWidth = 360;  // pixels at least

}  // namespace

frmEditProperty::frmEditProperty(const GridTexts& texts, QWidget* parent)
    : QDialog(parent),
      cmdReset_(new QPushButton(this)),
      txtNewValue_(new QLineEdit(this)),
      cmdBrowse_(new QPushButton(this)),
      txtOldValue_(new QLineEdit(this)),
      lblNewValue_(new QLabel(this)),
      lblOldValue_(new QLabel(this)),
      lblPrompt_(new QLabel(this)) {
  setObjectName(u"frmEditProperty"_s);
  setFont(tools::FormFont());
  cmdReset_->setObjectName(u"cmdReset"_s);
  txtNewValue_->setObjectName(u"txtNewValue"_s);
  txtOldValue_->setObjectName(u"txtOldValue"_s);
  lblNewValue_->setObjectName(u"lblNewValue"_s);
  lblOldValue_->setObjectName(u"lblOldValue"_s);
  lblPrompt_->setObjectName(u"lblPrompt"_s);
  for (QLineEdit* textBox : {txtNewValue_, txtOldValue_}) {
    tools::PrepareTextBox(*textBox);
    textBox->setMinimumWidth(kTextBoxWidth);
  }
  txtOldValue_->setReadOnly(true);
  cmdBrowse_->setObjectName(u"cmdBrowse"_s);
  cmdBrowse_->setAutoDefault(false);
  cmdBrowse_->hide();
  ShowTexts(texts);
  LayOut();
  connect(cmdReset_, &QPushButton::clicked, this, &frmEditProperty::Reset);
  connect(cmdBrowse_, &QPushButton::clicked, this, &frmEditProperty::Browse);
  connect(cmdOK_, &QPushButton::clicked, this, &frmEditProperty::Confirm);
  connect(cmdCancel_, &QPushButton::clicked, this, &frmEditProperty::reject);
}

void frmEditProperty::ShowTexts(const GridTexts& texts) {
  setWindowTitle(texts.editCaption);
  cmdReset_->setText(texts.reset);
  cmdBrowse_->setText(texts.browse);
  knownValues_ = texts.knownValues;
  lblOldValue_->setText(texts.oldValue);
  lblNewValue_->setText(texts.newValue);
  lblOldValue_->setBuddy(txtOldValue_);
  lblNewValue_->setBuddy(txtNewValue_);
  lblPrompt_->setTextFormat(Qt::PlainText);  // it holds a title, which may look like HTML
  lblPrompt_->setWordWrap(true);
  // A title that is one long word must not stretch the dialog beyond the screen.
  QSizePolicy policy = lblPrompt_->sizePolicy();
  policy.setHorizontalPolicy(QSizePolicy::Ignored);
  lblPrompt_->setSizePolicy(policy);
}

void frmEditProperty::LayOut() {
  QDialogButtonBox* buttons = tools::MakeOkCancelButtons(this);
  buttons->addButton(cmdReset_, QDialogButtonBox::ResetRole);
  cmdOK_ = buttons->button(QDialogButtonBox::Ok);
  cmdCancel_ = buttons->button(QDialogButtonBox::Cancel);

  auto* fields = new QGridLayout;
  // In one cell: a column for a button that is not there would keep its spacing.
  auto* newValue = new QHBoxLayout;
  newValue->addWidget(txtNewValue_);
  newValue->addWidget(cmdBrowse_);
  fields->addWidget(lblNewValue_, 0, 0);
  fields->addLayout(newValue, 0, 1);
  fields->addWidget(lblOldValue_, 1, 0);
  fields->addWidget(txtOldValue_, 1, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lblPrompt_);
  layout->addSpacing(layout->spacing());
  layout->addLayout(fields);
  layout->addStretch();
  layout->addSpacing(layout->spacing());
  layout->addWidget(buttons);

  setTabOrder(cmdReset_, cmdCancel_);
  setTabOrder(cmdCancel_, cmdOK_);
  setTabOrder(cmdOK_, txtNewValue_);
  setTabOrder(txtNewValue_, cmdBrowse_);
  setTabOrder(cmdBrowse_, txtOldValue_);
  txtNewValue_->setFocus();
}

bool frmEditProperty::IsEdited() const { return txtNewValue_->isModified(); }

void frmEditProperty::SetEmptyHint(const QString& hint) { txtNewValue_->setPlaceholderText(hint); }

void frmEditProperty::SetHelp(const ValueHelp& help) {
  browse_ = help.browse;
  cmdBrowse_->setVisible(browse_ != nullptr);
  if (help.values.empty()) return;
  new ValueCompleter(*txtNewValue_, knownValues_, help.values);
}

void frmEditProperty::setVisible(bool visible) {
  if (visible) Fill();
  QDialog::setVisible(visible);
}

bool frmEditProperty::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate && !txtNewValue_->isModified()) Fill();
  return QDialog::event(event);
}

void frmEditProperty::closeEvent(QCloseEvent* event) {
  if (!event->spontaneous()) {
    event->accept();
    return;
  }
  event->ignore();
  cmdCancel_->click();
}

void frmEditProperty::reject() {
  apply_ = false;
  QDialog::reject();
}

void frmEditProperty::Fill() {
  cmdReset_->setVisible(enableDefaultValue_);
  lblPrompt_->setText(prompt_);
  txtNewValue_->setAccessibleDescription(prompt_);
  txtOldValue_->setText(value_);
  txtNewValue_->setText(value_);
  tools::SelectAllText(*txtNewValue_);
}

void frmEditProperty::Reset() {
  txtNewValue_->setText(defaultValue_);
  txtNewValue_->setModified(true);
}

void frmEditProperty::Browse() {
  const QString chosen = browse_();
  if (chosen.isEmpty()) return;
  txtNewValue_->setText(chosen);
  txtNewValue_->setModified(true);
  txtNewValue_->setFocus();
}

void frmEditProperty::Confirm() {
  value_ = txtNewValue_->text();
  apply_ = true;
  accept();
}

}  // namespace grid
