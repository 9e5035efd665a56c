#include "tools/desktop/MessageWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "tools/StandardTexts.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/QtText.h"

namespace tools {

using namespace Qt::StringLiterals;

namespace {

struct ButtonKind {
  MessageAnswer answer;
  QMessageBox::StandardButton button;
  QLatin1StringView name;
};

constexpr std::array<ButtonKind, 4> kButtons{{
    {MessageAnswer::Ok, QMessageBox::Ok, "cmdOK"_L1},
    {MessageAnswer::Cancel, QMessageBox::Cancel, "cmdCancel"_L1},
    {MessageAnswer::Yes, QMessageBox::Yes, "cmdYes"_L1},
    {MessageAnswer::No, QMessageBox::No, "cmdNo"_L1},
}};

QString ButtonText(MessageAnswer answer) {
  switch (answer) {
    case MessageAnswer::Ok:
      return ToQString(StandardText(kTextOk));
    case MessageAnswer::Cancel:
      return ToQString(StandardText(kTextCancel));
    case MessageAnswer::Yes:
      return u"&Ja"_s;
    case MessageAnswer::No:
      return u"&Nein"_s;
  }
  return {};
}

QMessageBox::StandardButtons ButtonsOf(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::Ok:
      return QMessageBox::Ok;
    case MessageButtons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageButtons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
  }
  return QMessageBox::Ok;
}

/// The answer of Escape and the close box, where the box has them.
MessageAnswer RejectingAnswer(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::Ok:
      return MessageAnswer::Ok;
    case MessageButtons::OkCancel:
      return MessageAnswer::Cancel;
    case MessageButtons::YesNo:
      return MessageAnswer::No;
  }
  return MessageAnswer::Cancel;
}

QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Exclamation:
      return QMessageBox::Warning;
    case MessageIcon::Question:
      return QMessageBox::Question;
    case MessageIcon::Information:
      return QMessageBox::Information;
    case MessageIcon::Critical:
      return QMessageBox::Critical;
  }
  return QMessageBox::NoIcon;
}

/// A message box that Escape and the close box leave only where one of its buttons says the same:
/// neither answers a Yes/No question.
class MessageBox : public QMessageBox {
 public:
  MessageBox(MessageButtons buttons, QWidget* owner)
      : QMessageBox(owner), mustAnswer_(buttons == MessageButtons::YesNo) {
    if (mustAnswer_) {
      setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                     Qt::MSWindowsFixedSizeDialogHint);
    }
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (mustAnswer_ && event->matches(QKeySequence::Cancel)) return;
    QMessageBox::keyPressEvent(event);
  }
  // Not every window system leaves the close box away.
  void closeEvent(QCloseEvent* event) override {
    if (mustAnswer_) {
      event->ignore();
    } else {
      QMessageBox::closeEvent(event);
    }
  }

 private:
  bool mustAnswer_;
};

/// In pixels. Qt clips a wider box, icon and margins included.
int WidestWord(const QWidget& box) {
  constexpr int kWidestBox = 900;
  constexpr int kIconAndMargins = 100;
  return std::min(box.screen()->availableGeometry().width() / 2, kWidestBox) - kIconAndMargins;
}

/// The box is wide enough for its caption, which window systems draw in a font of their own beside
/// their buttons.
void MakeRoomForCaption(QMessageBox& box) {
  QFont font = QApplication::font("QMdiSubWindowTitleBar");
  font.setBold(true);
  const QFontMetrics metrics(font);
  const int width = std::min(metrics.horizontalAdvance(box.windowTitle()) + 8 * metrics.height(),
                             box.screen()->availableGeometry().width() * 3 / 4);
  auto* layout = qobject_cast<QGridLayout*>(box.layout());
  if (layout == nullptr) return;
  layout->addItem(new QSpacerItem(width, 0, QSizePolicy::Minimum, QSizePolicy::Fixed),
                  layout->rowCount(), 0, 1, layout->columnCount());
}

void PrepareButtons(QMessageBox& box, const Message& message) {
  box.setStandardButtons(ButtonsOf(message.buttons));
  const MessageAnswer rejecting = RejectingAnswer(message.buttons);
  for (const ButtonKind& kind : kButtons) {
    auto* button = qobject_cast<QPushButton*>(box.button(kind.button));
    if (button == nullptr) continue;
    button->setObjectName(kind.name);
    button->setText(ButtonText(kind.answer));
    if (kind.answer == message.defaultAnswer) box.setDefaultButton(button);
    if (kind.answer == rejecting) box.setEscapeButton(button);
  }
}

}  // namespace

MessageAnswer RunMessageBox(const Message& message, QWidget* owner) {
  MessageBox box(message.buttons, owner);
  box.setObjectName(u"messageBox"_s);
  box.setFont(FormFont());
  box.setIcon(IconOf(message.icon));
  box.setWindowTitle(ToQString(message.caption));
  box.setTextFormat(Qt::PlainText);
  box.setText(WithBreaksInLongWords(ToQString(message.text).replace("\r\n"_L1, "\n"_L1),
                                    box.fontMetrics(), WidestWord(box)));
  PrepareButtons(box, message);
  MakeRoomForCaption(box);
  const int chosen = box.exec();
  for (const ButtonKind& kind : kButtons) {
    if (kind.button == chosen) return kind.answer;
  }
  return RejectingAnswer(message.buttons);
}

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
