#include "shell/frmNewProduct.h"

#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "model/ModProject.h"
#include "model/Preferences.h"
#include "model/TextTable.h"
#include "pages/PageText.h"
#include "tools/StandardTexts.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/QtText.h"
#include "tools/files/Names.h"
#include "tools/files/Path.h"
#include "tools/files/SpecialFolders.h"

namespace shell {

using model::Text;
using pages::Caption;

namespace {

constexpr int kColumns = 56;  ///< characters of the file name that are seen at once

QLineEdit* AddField(QFormLayout& form, QLabel*& label, const char* labelName, Text text,
                    const char* name) {
  label = new QLabel(Caption(text));
  label->setObjectName(QString::fromLatin1(labelName));
  auto* field = new QLineEdit;
  field->setObjectName(QString::fromLatin1(name));
  field->setAccessibleName(label->text());
  tools::PrepareTextBox(*field);
  label->setBuddy(field);
  form.addRow(label, field);
  return field;
}

}  // namespace

frmNewProduct::frmNewProduct(tools::Registry& registry, tools::Dialogs& dialogs, QWidget* parent)
    : QDialog(parent), registry_(registry), dialogs_(dialogs) {
  setObjectName(QStringLiteral("frmNewProduct"));
  setWindowTitle(Caption(Text::NewProductCaption));
  BuildControls();
  connect(txtProductTitle, &QLineEdit::textChanged, this, &frmNewProduct::ProposeFileName);
  connect(cmdOK, &QPushButton::clicked, this, &frmNewProduct::Confirm);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  txtProductTitle->setText(Caption(Text::NewProductTitle));
  txtProductTitle->selectAll();
  txtAuthor->setText(
      tools::ToQString(registry_.Read(tools::RegistryRoot::CurrentUser, model::kPreferencesKey,
                                      model::kLastAuthor, std::string_view())));
}

// The fields come into the dialog before the buttons, so that Tab goes through them first.
void frmNewProduct::BuildControls() {
  auto* layout = new QVBoxLayout(this);
  auto* form = new QFormLayout;
  layout->addLayout(form);
  form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  txtProductTitle =
      AddField(*form, lblProductTitle, "lblProductTitle", Text::ProductTitle, "txtProductTitle");
  txtAuthor = AddField(*form, lblAuthor, "lblAuthor", Text::Author, "txtAuthor");
  txtFilename =
      AddField(*form, lblProductFile, "lblProductFile", Text::ProductFileName, "txtFilename");
  txtFilename->setMinimumWidth(fontMetrics().averageCharWidth() * kColumns);

  QDialogButtonBox* buttons = tools::MakeOkCancelButtons(this);
  cmdOK = buttons->findChild<QPushButton*>(QStringLiteral("cmdOK"));
  cmdOK->setText(Caption(Text::Create));
  cmdCancel = buttons->findChild<QPushButton*>(QStringLiteral("cmdCancel"));

  layout->addStretch(1);
  layout->addWidget(buttons);
}

QString frmNewProduct::ProductTitle() const { return txtProductTitle->text(); }

QString frmNewProduct::Author() const { return txtAuthor->text(); }

QString frmNewProduct::FileName() const { return txtFilename->text(); }

void frmNewProduct::ProposeFileName(const QString& title) {
  // The folder has the title as typed; only the file's name is cleaned.
  const std::string typed = tools::ToUtf8(title);
  std::string path = tools::JoinPath(tools::SpecialFolder(tools::kDocumentsFolder),
                                     model::LoadText(Text::ProductsFolder));
  path.append(1, tools::kPathSeparator).append(typed).append(1, tools::kPathSeparator);
  path += tools::CleanFileName(typed + "." + std::string(model::ModProject::kProductExtension));
  txtFilename->setText(tools::ToQString(path));
}

void frmNewProduct::Confirm() {
  // A product can be made without it.
  tools::Guard(dialogs_, [this] {
    registry_.Write(tools::RegistryRoot::CurrentUser, model::kPreferencesKey, model::kLastAuthor,
                    tools::ToUtf8(txtAuthor->text()));
  });
  confirmed_ = true;
  accept();
}

void frmNewProduct::closeEvent(QCloseEvent* event) {
  if (!event->spontaneous()) {
    QDialog::closeEvent(event);
    return;
  }
  event->ignore();
  cmdCancel->click();
}

std::optional<model::NewProduct> NewProductDialog::Ask() {
  frmNewProduct form(registry_, dialogs_, &parent_);
  form.exec();
  if (!form.Confirmed()) return std::nullopt;
  return model::NewProduct{.title = tools::ToUtf8(form.ProductTitle()),
                           .author = tools::ToUtf8(form.Author()),
                           .fileName = tools::ToUtf8(form.FileName())};
}

}  // namespace shell
