#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/Widgets.h"
#include "tools/desktop/DesktopDialogs.h"
#include "tools/desktop/FileChoice.h"
#include "tools/desktop/QtText.h"
#include "tools/desktop/WaitCursor.h"

namespace tests {

using tools::MessageAnswer;
using tools::MessageButtons;

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
      QCOMPARE(Shown(box, {"cmdYes", "cmdNo"}), "&Ja|&Nein");
    });
    QCOMPARE(dialogs_.ShowMessage({.text = "<b>Ä & B</b>\r\n\r\nWeiter?",
                                   .caption = "Frage",
                                   .icon = tools::MessageIcon::Question,
                                   .buttons = MessageButtons::YesNo,
                                   .defaultAnswer = MessageAnswer::No}),
             MessageAnswer::Yes);
  }

  void EnterPressesTheDefaultButtonAndEscapeTheRejectingOne() {
    using enum MessageAnswer;
    const std::vector<std::tuple<MessageButtons, MessageAnswer, Qt::Key, MessageAnswer>> cases{
        {MessageButtons::Ok, Ok, Qt::Key_Escape, Ok},
        {MessageButtons::YesNo, No, Qt::Key_Return, No},
        {MessageButtons::YesNo, Yes, Qt::Key_Return, Yes},
        {MessageButtons::YesNo, Yes, Qt::Key_Escape, No},
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

  void AQuestionInTheMiddleOfWorkHasTheNormalPointer() {
    const tools::WaitCursor hourglass;
    ModalScript script;
    script.Expect<QWidget>("messageBox", [](QWidget& box) {
      QTest::keyClick(&box, Qt::Key_Escape);
      QCOMPARE(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    });
    dialogs_.ShowMessage({.text = "Fertig", .caption = ""});
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
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
      Type(Child(dialog, "fileNameEdit"), tools::ToQString(folder.Path()));
      QTest::keyClick(&Child(dialog, "fileNameEdit"), Qt::Key_Return);
      QCOMPARE(dialog.windowTitle(), "Wählen Sie einen Ordner aus. Alle Dateien.");
    });
    QCOMPARE(dialogs_.BrowseFolder("Wählen Sie einen Ordner aus.\r\nAlle Dateien.", 17),
             folder.Path());
  }

  void FiltersArePairsOfTextAndPatterns() {
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

 private:
  std::unique_ptr<QWidget> window_;
  tools::DesktopDialogs dialogs_;
};

}  // namespace tests

QTEST_MAIN(tests::DesktopDialogsTest)
#include "DesktopDialogsTest.moc"
