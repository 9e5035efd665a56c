#include "tools/desktop/FormStyle.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <limits>

#include "tools/StandardTexts.h"
#include "tools/desktop/QtText.h"

namespace tools {

using namespace Qt::StringLiterals;

namespace {

bool IsLineBreak(QChar c) {
  return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

/// Takes wheel events from its parent while that has no focus.
class WheelFilter : public QObject {
 public:
  explicit WheelFilter(QComboBox* box) : QObject(box), box_(box) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Wheel && !box_->hasFocus()) {
      event->ignore();
      return true;
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  QComboBox* box_;
};

}  // namespace

QFont FormFont() {
  QFont font = QApplication::font();
  // A family that is missing would be replaced by one that nobody chose for this desktop.
  if (QFontDatabase::hasFamily(u"Tahoma"_s)) font.setFamily(u"Tahoma"_s);
  return font;
}

void SelectAllText(QLineEdit& textBox) { textBox.selectAll(); }

void PrepareTextBox(QLineEdit& textBox) {
  textBox.setMaxLength(std::numeric_limits<int>::max());
  QObject::connect(&textBox, &QLineEdit::textChanged, &textBox, [&textBox](const QString& text) {
    QString line = text;
    std::replace_if(line.begin(), line.end(), IsLineBreak, QChar(u' '));
    if (line == text) return;
    const int cursor = textBox.cursorPosition();
    textBox.setText(line);
    textBox.setModified(true);
    textBox.setCursorPosition(cursor);
  });
}

QString WithBreaksInLongWords(const QString& text, const QFontMetrics& metrics, int width) {
  QStringList lines = text.split(QLatin1Char('\n'));
  for (QString& line : lines) {
    QStringList words = line.split(QLatin1Char(' '));
    for (QString& word : words) {
      if (metrics.horizontalAdvance(word) <= width) continue;
      for (qsizetype i = word.size() - 1; i > 0; --i) {
        if (!word.at(i).isLowSurrogate()) word.insert(i, QChar(0x200B));
      }
    }
    line = words.join(QLatin1Char(' '));
  }
  return lines.join(QLatin1Char('\n'));
}

void IgnoreWheelWithoutFocus(QComboBox& box) {
  box.setFocusPolicy(Qt::StrongFocus);
  box.installEventFilter(new WheelFilter(&box));
}

void NameEditableBox(QComboBox& box, const QString& name) {
  box.setAccessibleName(name);
  box.lineEdit()->setAccessibleName(name);
}

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
