#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QScreen>
#include <optional>

#include "tests/support/desktop/ModalScript.h"
#include "tools/desktop/BusyNotice.h"
#include "tools/desktop/DesktopDialogs.h"
#include "tools/desktop/WaitCursor.h"

namespace tests {

using tools::MessageButtons;

struct PaintCounter : QObject {
  PaintCounter() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }

  int count = 0;
};

/// What the text of a wrapped label takes of the width that the label has.
QSize NeededSize(const QLabel& label) {
  return label.fontMetrics()
      .boundingRect(QRect(0, 0, label.width(), 0), Qt::TextWordWrap, label.text())
      .size();
}

class DesktopDialogsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    window_ = std::make_unique<QLineEdit>();
    window_->resize(800, 600);
    window_->show();
    Activate(*window_);
    dialogs_.emplace(window_.get());
  }

  void AMessageBoxShowsItsMessage() {
    const tools::WaitCursor hourglass;
    ModalScript script;
    script.Expect<QMessageBox>("messageBox", [this](QMessageBox& box) {
      QTest::keyClick(&box, Qt::Key_J);
      QCOMPARE(box.windowTitle(), "Frage");
      QCOMPARE(box.text(), "<b>Ä & B</b>\n\nWeiter?");
      QCOMPARE(box.textFormat(), Qt::PlainText);
      QCOMPARE(box.icon(), QMessageBox::Question);
      QCOMPARE(box.parentWidget(), window_.get());
      QCOMPARE(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
      QCOMPARE(Shown(box, {"cmdYes", "cmdNo"}), "&Ja|&Nein");
    });
    QCOMPARE(
        dialogs_->ShowMessage({"<b>Ä & B</b>\r\n\r\nWeiter?", "Frage", tools::MessageIcon::Question,
                               MessageButtons::YesNo, MessageAnswer::No}),
        MessageAnswer::Yes);
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  }

  void AMessageBoxIsWideEnoughForItsCaption() {
    const QString caption = "Einstellungen für die nächste Erstellung";
    ModalScript script;
    script.Expect<QMessageBox>("messageBox", [&](QMessageBox& box) {
      QVERIFY(box.width() > box.fontMetrics().horizontalAdvance(caption) + 60);
      Press(box, "cmdOK");
    });
    dialogs_->ShowMessage({.text = "Kurz.", .caption = tools::ToUtf8(caption)});
  }

  void KeysPressTheButtonsOfAMessageBox() {
    using enum MessageAnswer;
    const std::tuple<MessageButtons, MessageAnswer, Qt::Key, MessageAnswer> cases[] = {
        {MessageButtons::Ok, Ok, Qt::Key_Escape, Ok},
        {MessageButtons::YesNo, No, Qt::Key_Return, No},
        {MessageButtons::YesNo, Yes, Qt::Key_Return, Yes},
        {MessageButtons::OkCancel, Cancel, Qt::Key_Return, Cancel},
        {MessageButtons::OkCancel, Ok, Qt::Key_Escape, Cancel}};
    for (const auto& [buttons, byDefault, key, expected] : cases) {
      QCOMPARE(Ask(buttons, byDefault, [key = key](QWidget& box) { QTest::keyClick(&box, key); }),
               expected);
    }
  }

  void AYesNoQuestionStaysUntilItIsAnswered() {
    const auto act = [](QWidget& box) {
      QTest::keyClick(&box, Qt::Key_Escape);
      PressCloseBox(box);
      const bool stays = box.isVisible();
      Press(box, "cmdYes");
      QVERIFY(stays);
      QVERIFY(!box.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    };
    QCOMPARE(Ask(MessageButtons::YesNo, MessageAnswer::No, act), MessageAnswer::Yes);
  }

  void TypingReplacesTheInputBoxsDefaultText() {
    ModalScript script;
    script.Expect<QWidget>("inputBox", [](QWidget& box) {
      QCOMPARE(Shown(box, {"lblPrompt", "txtInput"}), "Name & Co.:|Neue");
      QTest::keyClicks(box.focusWidget(), "Hilfe");
      QTest::keyClick(box.focusWidget(), Qt::Key_Return);
    });
    QCOMPARE(dialogs_->InputBox("Name & Co.:", "Komponente hinzufügen...", "Neue"), "Hilfe");
    script.ExpectAndPress("inputBox", "cmdCancel");
    QCOMPARE(dialogs_->InputBox("Name:", "", "Neue Komponente"), "");
  }

  void AChosenFileComesBackAsItsPath() {
    const TemporaryFolder folder;
    const std::string path = folder.Write("Maß/Demo.product", "");
    const tools::OpenFileRequest request{.title = "Projekt öffnen",
                                         .initialFolder = folder.Path("Maß/nicht/da"),
                                         .filter = "Alle|*.*|Produkte|*.ico; *.product",
                                         .defaultExtension = "product",
                                         .filterIndex = 2};
    ModalScript script;
    script.Expect<QFileDialog>("openFile", [](QFileDialog& dialog) {
      const QString filter = dialog.selectedNameFilter();
      Type(Child(dialog, "fileNameEdit"), "Demo");
      QTest::keyClick(&Child(dialog, "fileNameEdit"), Qt::Key_Return);
      QCOMPARE(filter, "Produkte");
    });
    QCOMPARE(dialogs_->OpenFile(request), path);
    script.Expect<QWidget>("openFile",
                           [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    QCOMPARE(dialogs_->OpenFile(request), "");
  }

  void ABusyNoticePaintsItselfWithoutAnEventLoop() {
    const PaintCounter paints;
    const int token = dialogs_->ShowBusyNotice("Bitte warten", {});
    const int paintsBefore = paints.count;
    QVERIFY(paintsBefore > 0);
    dialogs_->UpdateBusyNotice(
        token,
        {.filesDone = 1200, .filesTotal = 5000, .bytesDone = 3 << 20, .bytesTotal = 4 << 20});
    QVERIFY(paints.count > paintsBefore);
    const auto& notice = Child(*window_, "busyNotice");
    QCOMPARE(Shown(notice, "lblProgress"), "1.200 von 5.000 Dateien, 3,0 MB von 4,0 MB");
    const auto& bar = Child<QProgressBar>(notice, "prgProgress");
    QCOMPARE(bar.value() * 4, bar.maximum() * 3);
  }

  void ABusyNoticeIsNeverTooSmallForItsTexts_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("pointSize");
    QTest::newRow("large font") << "Das Setup wird erzeugt, bitte warten..." << 20;
    QTest::newRow("long word") << QString(900, 'x') << 9;
  }
  void ABusyNoticeIsNeverTooSmallForItsTexts() {
    QFETCH(const QString, text);
    QFETCH(const int, pointSize);
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPointSize(pointSize);
    QApplication::setFont(font);
    tools::BusyNotice notice(text, tools::BusyNotice::Buttons::Stop, nullptr);
    QApplication::setFont(before);
    for (const unsigned files : {1U, 999'999U}) {
      notice.ShowProgress({files, files, files * 1'000'000ULL, files * 1'000'000ULL});
    }
    const auto& label = Child<QLabel>(notice, "lblText");
    QCOMPARE(NeededSize(label).boundedTo(label.size()), NeededSize(label));
    const auto& progress = Child(notice, "lblProgress");
    QVERIFY2(progress.width() >= progress.sizeHint().width(), "lblProgress");
    for (const QWidget* part : notice.findChildren<QWidget*>()) {
      QVERIFY2(notice.rect().contains(part->geometry()), qPrintable(part->objectName()));
    }
    QVERIFY(notice.width() <= notice.screen()->availableGeometry().width());
  }

  void WhatTheUserDoesDuringABusyNoticeIsDropped() {
    const int token = dialogs_->ShowBusyNotice("Bitte warten", {});
    const int second = dialogs_->ShowBusyNotice("Noch etwas", {});
    TypeSoon();
    dialogs_->UpdateBusyNotice(token, {.filesDone = 1});
    TypeSoon();
    dialogs_->WithdrawBusyNotice(token);
    QVERIFY(Child(*window_, "busyNotice").isVisible());
    for (int i = 0; i < 2; ++i) dialogs_->WithdrawBusyNotice(second);
    QVERIFY(window_->findChild<QWidget*>("busyNotice") == nullptr);
    QCOMPARE(window_->text(), "");
    TypeSoon();
    QApplication::processEvents();
    QCOMPARE(window_->text(), "a");
  }

  void WorkIsStoppedByTheButtonOrEscapeOnceTheUserConfirms_data() {
    QTest::addColumn<bool>("byKey");
    QTest::addColumn<bool>("confirmed");
    QTest::newRow("button, yes") << false << true;
    QTest::newRow("button, no") << false << false;
    QTest::newRow("Escape, yes") << true << true;
  }

  void WorkIsStoppedByTheButtonOrEscapeOnceTheUserConfirms() {
    QFETCH(const bool, byKey);
    QFETCH(const bool, confirmed);
    const int token = dialogs_->ShowBusyNotice("Bitte warten", "Aufhören?");
    ModalScript script;
    script.ExpectAndPress("messageBox", confirmed ? "cmdYes" : "cmdNo");
    QTimer::singleShot(0, [&] {
      if (byKey) {
        QTest::keyClick(window_.get(), Qt::Key_Escape);
      } else {
        Press(Child(*window_, "busyNotice"), "cmdStop");
      }
    });
    for (int i = 0; i < 2; ++i) dialogs_->UpdateBusyNotice(token, {.filesDone = 1});
    QCOMPARE(dialogs_->IsStopWanted(token), confirmed);
    dialogs_->WithdrawBusyNotice(token);
  }

  void ABusyNoticeStaysUntilItIsWithdrawn() {
    const int token = dialogs_->ShowBusyNotice("Bitte warten", {});
    const QPointer<QWidget> notice = &Child(*window_, "busyNotice");
    QTest::keyClick(notice, Qt::Key_Escape);
    PressCloseBox(*notice);
    QVERIFY(notice->isVisible());
    window_.reset();
    QVERIFY(notice == nullptr);
    dialogs_->UpdateBusyNotice(token, {.filesDone = 1});
    dialogs_->WithdrawBusyNotice(token);
  }

 private:
  /// The answer to a question that is answered by `act`.
  MessageAnswer Ask(MessageButtons buttons, MessageAnswer byDefault,
                    const std::function<void(QWidget&)>& act) {
    ModalScript script;
    script.Expect<QWidget>("messageBox", act);
    return dialogs_->ShowMessage(
        {.text = "?", .caption = "", .buttons = buttons, .defaultAnswer = byDefault});
  }
  /// What the user types comes with the next events.
  void TypeSoon() const {
    QApplication::postEvent(window_.get(),
                            new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a"));
  }

  std::unique_ptr<QLineEdit> window_;
  std::optional<tools::DesktopDialogs> dialogs_;
};

}  // namespace tests

QTEST_MAIN(tests::DesktopDialogsTest)
#include "DesktopDialogsTest.moc"
