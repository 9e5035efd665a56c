#include "shell/TextWindow.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "model/TextTable.h"
#include "tools/desktop/QtText.h"

namespace shell {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTextColumns = 100;
constexpr int kLines = 30;

}  // namespace

TextWindow::TextWindow(const QString& title, const QString& text, QWidget* parent)
    : QDialog(parent) {
  setObjectName(u"textWindow"_s);
  setWindowTitle(title);
  auto* txtText = new QPlainTextEdit(this);
  txtText->setObjectName(u"txtText"_s);
  txtText->setAccessibleName(title);
  txtText->setReadOnly(true);
  txtText->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  txtText->setLineWrapMode(QPlainTextEdit::NoWrap);
  txtText->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  txtText->setPlainText(text);
  auto* cmdClose = new QPushButton(tools::ToQString(model::LoadText(model::Text::Close)), this);
  cmdClose->setObjectName(u"cmdClose"_s);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(txtText);
  layout->addWidget(cmdClose, 0, Qt::AlignRight);
  const QFontMetrics metrics = txtText->fontMetrics();
  resize(metrics.averageCharWidth() * kTextColumns, metrics.lineSpacing() * kLines);
}

}  // namespace shell
