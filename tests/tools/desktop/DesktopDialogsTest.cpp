#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QScreen>

#include "tests/support/desktop/ModalScript.h"
#include "tools/desktop/BusyNotice.h"
#include "tools/desktop/DesktopDialogs.h"
#include "tools/desktop/FileChoice.h"
#include "tools/desktop/WaitCursor.h"

namespace tests {

using tools::MessageAnswer;
using tools::MessageButtons;

namespace {

/// What the text of a wrapped label takes of the width that the label has.
QSize NeededSize(const QLabel& label) {
  return label.fontMetrics()
      .boundingRect(QRect(0, 0, label.width(), 0), Qt::TextWordWrap, label.text())
      .size();
}

struct PaintCounter : QObject {
  PaintCounter() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }

  int count = 0;
};

}  // namespace

class DesktopDialogsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    window_ = std::make_unique<QLineEdit>();
    window_->resize(800, 600);
    window_->show();
    Activate(*window_);
    dialogs_.SetParent(window_.get());
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
    QCOMPARE(dialogs_.ShowMessage({.text = "<b>Ä & B</b>\r\n\r\nWeiter?",
                                   .caption = "Frage",
                                   .icon = tools::MessageIcon::Question,
                                   .buttons = MessageButtons::YesNo,
                                   .defaultAnswer = MessageAnswer::No}),
             MessageAnswer::Yes);
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  }

  void AMessageBoxIsNeverTooSmallForItsText() {
    const QString word = QString(500, 'x');
    ModalScript script;
    script.Expect<QMessageBox>("messageBox", [&word](QMessageBox& box) {
      const auto& label = Child<QLabel>(box, "qt_msgbox_label");
      const bool fits = NeededSize(label).boundedTo(label.size()) == NeededSize(label);
      const QString text = box.text();
      QTest::keyClick(&box, Qt::Key_Return);
      QVERIFY(fits);
      QVERIFY(text.startsWith("Datei:\nx"));
      QCOMPARE(QString(text).remove(QChar(0x200B)), "Datei:\n" + word);
    });
    dialogs_.ShowMessage({.text = "Datei:\n" + word.toStdString(),
                          .caption = "Fehler",
                          .icon = tools::MessageIcon::Exclamation,
                          .buttons = MessageButtons::Ok,
                          .defaultAnswer = MessageAnswer::Ok});
  }

  void KeysPressTheButtonsOfAMessageBox() {
    using enum MessageAnswer;
    const std::vector<std::tuple<MessageButtons, MessageAnswer, Qt::Key, MessageAnswer>> cases{
        {MessageButtons::Ok, Ok, Qt::Key_Escape, Ok},
        {MessageButtons::YesNo, No, Qt::Key_Return, No},
        {MessageButtons::YesNo, Yes, Qt::Key_Return, Yes},
        {MessageButtons::OkCancel, Cancel, Qt::Key_Return, Cancel},
        {MessageButtons::OkCancel, Ok, Qt::Key_Escape, Cancel}};
    for (const auto& [buttons, byDefault, key, expected] : cases) {
      ModalScript script;
      script.Expect<QWidget>("messageBox",
                             [key = key](QWidget& box) { QTest::keyClick(&box, key); });
      QCOMPARE(dialogs_.ShowMessage(
                   {.text = "?", .caption = "", .buttons = buttons, .defaultAnswer = byDefault}),
               expected);
    }
  }

  void AMessageBoxShowsItsIcon() {
    using enum tools::MessageIcon;
    for (const auto& [icon, shown] : {std::pair{Exclamation, QMessageBox::Warning},
                                      {Information, QMessageBox::Information},
                                      {Critical, QMessageBox::Critical}}) {
      ModalScript script;
      script.Expect<QMessageBox>("messageBox", [shown = shown](QMessageBox& box) {
        QCOMPARE(box.icon(), shown);
        Press(box, "cmdOK");
      });
      dialogs_.ShowMessage({.text = "!", .caption = "", .icon = icon});
    }
  }

  void AYesNoQuestionStaysUntilItIsAnswered() {
    const auto answer = [this](const std::function<void(QWidget&)>& leave) {
      ModalScript script;
      script.Expect<QWidget>("messageBox", [&leave](QWidget& box) {
        leave(box);
        const bool stays = box.isVisible();
        Press(box, "cmdYes");
        QVERIFY(stays);
        QVERIFY(!box.windowFlags().testFlag(Qt::WindowCloseButtonHint));
      });
      QCOMPARE(dialogs_.ShowMessage({.text = "?",
                                     .caption = "",
                                     .buttons = MessageButtons::YesNo,
                                     .defaultAnswer = MessageAnswer::No}),
               MessageAnswer::Yes);
    };
    answer([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    answer([](QWidget& box) { PressCloseBox(box); });
    answer([](QWidget& box) { box.close(); });
  }

  void TypingReplacesTheInputBoxsDefaultText() {
    ModalScript script;
    script.Expect<QWidget>("inputBox", [](QWidget& box) {
      QTest::keyClicks(box.focusWidget(), "Hilfe");
      QTest::keyClick(box.focusWidget(), Qt::Key_Return);
      QCOMPARE(box.windowTitle(), "Komponente hinzufügen...");
      QCOMPARE(Shown(box, {"lblPrompt", "txtInput", "cmdCancel"}), "Name & Co.:|Hilfe|Abbrechen");
    });
    QCOMPARE(dialogs_.InputBox("Name & Co.:", "Komponente hinzufügen...", "Neue"), "Hilfe");
    script.ExpectAndPress("inputBox", "cmdCancel");
    QCOMPARE(dialogs_.InputBox("Name:", "", "Neue Komponente"), "");
  }

  void AChosenFileComesBackAsItsPath() {
    const TemporaryFolder folder;
    const std::string path = folder.Write("Maß/Demo.product", "");
    ModalScript script;
    script.Expect<QFileDialog>("openFile", [&folder](QFileDialog& dialog) {
      const QString start = QDir::toNativeSeparators(dialog.directory().path());
      Type(Child(dialog, "fileNameEdit"), "Demo");
      QTest::keyClick(&Child(dialog, "fileNameEdit"), Qt::Key_Return);
      QCOMPARE(start, tools::ToQString(folder.Path("Maß")));
      QCOMPARE(dialog.windowTitle(), "Projekt öffnen");
      QCOMPARE(dialog.selectedNameFilter(), "Produkte (*.product)");
    });
    const tools::OpenFileRequest request{.title = "Projekt öffnen",
                                         .initialFolder = folder.Path("Maß/nicht/da"),
                                         .filter = "Alle|*.*|Produkte (*.product)|*.product",
                                         .defaultExtension = "product",
                                         .filterIndex = 2};
    QCOMPARE(dialogs_.OpenFile(request), path);
    script.Expect<QWidget>("openFile",
                           [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    QCOMPARE(dialogs_.OpenFile(request), "");
  }

  void AChosenFolderComesBackAsItsPath() {
    const TemporaryFolder folder;
    ModalScript script;
    script.Expect<QWidget>("browseFolder", [&folder](QWidget& dialog) {
      Child<QLineEdit>(dialog, "fileNameEdit").setText(tools::ToQString(folder.Path()));
      QTest::keyClick(&Child(dialog, "fileNameEdit"), Qt::Key_Return);
      QCOMPARE(dialog.windowTitle(), "Wählen Sie einen Ordner aus. Alle Dateien.");
    });
    QCOMPARE(dialogs_.BrowseFolder("Wählen Sie einen Ordner aus.\r\nAlle Dateien.", 17),
             folder.Path());
  }

  void FiltersArePairs() {
    const std::vector<std::pair<QString, QStringList>> cases{
        {"Produkte (*.product)|*.product", {"Produkte (*.product) (*.product)"}},
        {"Bilder|*.png; *.jpg|Alle|*.*", {"Bilder (*.png *.jpg)", "Alle (*)"}},
        {"*.*|*.*", {"*.* (*)"}},
        {"Produkte", {"*.* (*)"}},
        {"", {"*.* (*)"}}};
    for (const auto& [filter, expected] : cases) QCOMPARE(tools::NameFilters(filter), expected);
  }

  void AMissingFolderGivesTheNearestOneAboveIt() {
    const TemporaryFolder folder;
    const QString existing = QDir::fromNativeSeparators(tools::ToQString(folder.Path()));
    for (const char* below : {"", "/Installationen/Demo/"}) {
      QCOMPARE(tools::NearestFolder(existing + below), existing);
    }
    QCOMPARE(tools::NearestFolder("/keiner da"), "/");
    for (const char* none : {"", "nicht da/auch nicht"}) QCOMPARE(tools::NearestFolder(none), "");
  }

  void ABusyNoticePaintsItselfWithoutAnEventLoop() {
    const PaintCounter paints;
    const int token = dialogs_.ShowBusyNotice("Bitte warten");
    const auto& notice = Child(*window_, "busyNotice");
    QVERIFY(notice.isVisible());
    QVERIFY(!Child(notice, "prgProgress").isVisible());
    const int paintsBefore = paints.count;
    QVERIFY(paintsBefore > 0);
    dialogs_.UpdateBusyNotice(
        token,
        {.filesDone = 1200, .filesTotal = 5000, .bytesDone = 3 << 20, .bytesTotal = 4 << 20});
    QVERIFY(paints.count > paintsBefore);
    QCOMPARE(Shown(notice, "lblProgress"), "1.200 von 5.000 Dateien, 3,0 MB von 4,0 MB");
    const auto& bar = Child<QProgressBar>(notice, "prgProgress");
    QCOMPARE(bar.value() * 4, bar.maximum() * 3);
    QVERIFY(notice.contentsRect().contains(bar.geometry()));
  }

  void ABusyNoticeIsNeverTooSmallForItsTexts_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("pointSize");
    QTest::newRow("short") << "Bitte warten" << 9;
    QTest::newRow("large font") << "Das Setup wird erzeugt, bitte warten..." << 20;
    QTest::newRow("long text") << QString("Bitte warten ").repeated(60) << 9;
    QTest::newRow("long word") << QString(900, 'x') << 9;
  }
  void ABusyNoticeIsNeverTooSmallForItsTexts() {
    QFETCH(const QString, text);
    QFETCH(const int, pointSize);
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPointSize(pointSize);
    QApplication::setFont(font);
    tools::BusyNotice notice(text, nullptr);
    QApplication::setFont(before);
    notice.ShowProgress({.filesDone = 1});
    notice.ShowProgress({.filesDone = 999'999,
                         .filesTotal = 999'999,
                         .bytesDone = 1'000'000'000'000,
                         .bytesTotal = 1'000'000'000'000});
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
    const int token = dialogs_.ShowBusyNotice("Bitte warten");
    const int second = dialogs_.ShowBusyNotice("Noch etwas");
    TypeSoon();
    dialogs_.UpdateBusyNotice(token, {.filesDone = 1});
    TypeSoon();
    dialogs_.WithdrawBusyNotice(token);
    QVERIFY(Child(*window_, "busyNotice").isVisible());
    for (int i = 0; i < 2; ++i) dialogs_.WithdrawBusyNotice(second);
    QVERIFY(window_->findChild<QWidget*>("busyNotice") == nullptr);
    QCOMPARE(window_->text(), "");
    TypeSoon();
    QApplication::processEvents();
    QCOMPARE(window_->text(), "a");
  }

  void ABusyNoticeStaysUntilItIsWithdrawn() {
    const int token = dialogs_.ShowBusyNotice("Bitte warten");
    dialogs_.ShowBusyNotice("Noch etwas");
    QTest::keyClicks(window_.get(), "b");
    QCOMPARE(window_->text(), "b");
    const QPointer<QWidget> notice = &Child(*window_, "busyNotice");
    QTest::keyClick(notice, Qt::Key_Escape);
    PressCloseBox(*notice);
    QVERIFY(notice->isVisible());
    QVERIFY(!notice->windowFlags().testFlag(Qt::WindowCloseButtonHint));
    window_.reset();
    QVERIFY(notice == nullptr);
    dialogs_.UpdateBusyNotice(token, {.filesDone = 1});
    dialogs_.WithdrawBusyNotice(token);
  }

 private:
  /// What the user types comes with the next events.
  void TypeSoon() const {
    QApplication::postEvent(window_.get(),
                            new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a"));
  }

  std::unique_ptr<QLineEdit> window_;
  tools::DesktopDialogs dialogs_;
};

}  // namespace tests

QTEST_MAIN(tests::DesktopDialogsTest)
#include "DesktopDialogsTest.moc"
