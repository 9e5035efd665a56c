#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/Widgets.h"
#include "tools/desktop/DesktopDialogs.h"
#include "tools/desktop/QtText.h"
#include "tools/desktop/WaitCursor.h"

namespace tests {

using tools::MessageAnswer;
using tools::MessageButtons;
using tools::MessageIcon;

class DesktopDialogsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    window_ = std::make_unique<QWidget>();
    window_->resize(800, 600);
    window_->show();
    QVERIFY(QTest::qWaitForWindowActive(window_.get()));
    dialogs_.SetParent(window_.get());
  }

  void AMessageBoxShowsTextIconAndGermanButtons() {
    ModalScript script;
    script.Expect<QMessageBox>("messageBox", [this](QMessageBox& box) {
      QTest::keyClick(&box, Qt::Key_J, Qt::AltModifier);
      QCOMPARE(box.windowTitle(), "Frage");
      QCOMPARE(box.text(), "<b>Ä & B</b>\n\nWeiter?");
      QCOMPARE(box.textFormat(), Qt::PlainText);
      QCOMPARE(box.icon(), QMessageBox::Question);
      QCOMPARE(box.parentWidget(), window_.get());
      QCOMPARE(Child<QPushButton>(box, "cmdYes").text(), "&Ja");
      QCOMPARE(Child<QPushButton>(box, "cmdNo").text(), "&Nein");
    });
    const MessageAnswer answer = dialogs_.ShowMessage({.text = "<b>Ä & B</b>\r\n\r\nWeiter?",
                                                       .caption = "Frage",
                                                       .icon = MessageIcon::Question,
                                                       .buttons = MessageButtons::YesNo,
                                                       .defaultAnswer = MessageAnswer::No});
    QCOMPARE(answer, MessageAnswer::Yes);
  }

  void EnterPressesTheDefaultButtonAndEscapeTheRejectingOne_data() {
    QTest::addColumn<MessageButtons>("buttons");
    QTest::addColumn<MessageAnswer>("defaultAnswer");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<MessageAnswer>("expected");
    using enum MessageAnswer;
    QTest::newRow("OK") << MessageButtons::Ok << Ok << Qt::Key_Escape << Ok;
    QTest::newRow("Yes/No, Enter") << MessageButtons::YesNo << No << Qt::Key_Return << No;
    QTest::newRow("Yes/No, Enter, Yes") << MessageButtons::YesNo << Yes << Qt::Key_Return << Yes;
    QTest::newRow("Yes/No, Escape") << MessageButtons::YesNo << Yes << Qt::Key_Escape << No;
    QTest::newRow("OK/Cancel, Enter")
        << MessageButtons::OkCancel << Cancel << Qt::Key_Return << Cancel;
    QTest::newRow("OK/Cancel, Escape")
        << MessageButtons::OkCancel << Ok << Qt::Key_Escape << Cancel;
  }

  void EnterPressesTheDefaultButtonAndEscapeTheRejectingOne() {
    QFETCH(MessageButtons, buttons);
    QFETCH(MessageAnswer, defaultAnswer);
    QFETCH(Qt::Key, key);
    QFETCH(MessageAnswer, expected);
    ModalScript script;
    script.Expect<QMessageBox>("messageBox",
                               [key](QMessageBox& box) { QTest::keyClick(&box, key); });
    QCOMPARE(dialogs_.ShowMessage(
                 {.text = "?", .caption = "", .buttons = buttons, .defaultAnswer = defaultAnswer}),
             expected);
  }

  void AQuestionInTheMiddleOfWorkHasTheNormalPointer() {
    const tools::WaitCursor hourglass;
    ModalScript script;
    script.Expect<QMessageBox>("messageBox", [](QMessageBox& box) {
      QTest::keyClick(&box, Qt::Key_Escape);
      QCOMPARE(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    });
    dialogs_.ShowMessage({.text = "Fertig", .caption = ""});
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  }

  void TypingReplacesTheInputBoxsDefaultText() {
    ModalScript script;
    script.Expect<QDialog>("inputBox", [](QDialog& box) {
      auto& input = Child<QLineEdit>(box, "txtInput");
      const bool focused = input.hasFocus();
      QTest::keyClicks(&input, "Hilfe");
      QTest::keyClick(&input, Qt::Key_Return);
      QVERIFY(focused);
      QCOMPARE(box.windowTitle(), "Komponente hinzufügen...");
      QCOMPARE(Child<QLabel>(box, "lblPrompt").text(), "Name & Co.:");
      QCOMPARE(Child<QPushButton>(box, "cmdCancel").text(), "Abbrechen");
    });
    QCOMPARE(dialogs_.InputBox("Name & Co.:", "Komponente hinzufügen...", "Neue Komponente"),
             "Hilfe");
    script.ExpectAndPress("inputBox", "cmdCancel");
    QCOMPARE(dialogs_.InputBox("Name:", "", "Neue Komponente"), "");
  }

  void AChosenFileComesBackAsItsPath() {
    const TemporaryFolder folder;
    const std::string path = folder.Write("Maß/Demo.product", "");
    ModalScript script;
    script.Expect<QFileDialog>("openFile", [&folder](QFileDialog& dialog) {
      const QString start = dialog.directory().path();
      QTest::keyClicks(dialog.findChild<QLineEdit*>(), "Demo");
      QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
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
    script.Expect<QFileDialog>(
        "openFile", [](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    QCOMPARE(dialogs_.OpenFile(request), "");
  }

  void AChosenFolderComesBackAsItsPath() {
    const TemporaryFolder folder;
    ModalScript script;
    script.Expect<QFileDialog>("browseFolder", [&folder](QFileDialog& dialog) {
      auto* edit = dialog.findChild<QLineEdit*>();
      edit->setText(tools::ToQString(folder.Path()));
      QTest::keyClick(edit, Qt::Key_Return);
      QCOMPARE(dialog.windowTitle(), "Wählen Sie einen Ordner aus. Alle Dateien.");
    });
    QCOMPARE(dialogs_.BrowseFolder("Wählen Sie einen Ordner aus.\r\nAlle Dateien.", 17),
             folder.Path());
  }

 private:
  std::unique_ptr<QWidget> window_;
  tools::DesktopDialogs dialogs_;
};

}  // namespace tests

QTEST_MAIN(tests::DesktopDialogsTest)
#include "DesktopDialogsTest.moc"
