#include "tools/desktop/FormStyle.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QLineEdit>
#include <QPushButton>
#include <limits>

#include "tools/StandardTexts.h"
#include "tools/desktop/QtText.h"

namespace tools {

using namespace Qt::StringLiterals;

QFont FormFont() {
  QFont font = QApplication::font();
  // A family that is missing would be replaced by one that nobody chose for this desktop.
  if (QFontDatabase::hasFamily(u"Tahoma"_s)) font.setFamily(u"Tahoma"_s);
  return font;
}

void SelectAllText(QLineEdit& textBox) { textBox.selectAll(); }

void AllowAnyLength(QLineEdit& textBox) { textBox.setMaxLength(std::numeric_limits<int>::max()); }

QDialogButtonBox* MakeOkCancelButtons(QWidget* parent) {
  auto* box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, parent);
  QPushButton* ok = box->button(QDialogButtonBox::Ok);
  ok->setObjectName(u"cmdOK"_s);
  ok->setText(ToQString(StandardText(kTextOk)));
  ok->setDefault(true);
  QPushButton* cancel = box->button(QDialogButtonBox::Cancel);
  cancel->setObjectName(u"cmdCancel"_s);
  cancel->setText(ToQString(StandardText(kTextCancel)));
  return box;
}

}  // namespace tools
