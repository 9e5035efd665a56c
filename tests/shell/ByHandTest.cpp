#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>
#include <array>

#include "shell/GuardedApplication.h"
#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/OpenedProgram.h"
#include "tools/desktop/DesktopDialogs.h"

namespace tests {

namespace {

/// Types into a dialog's text box, replacing what is selected in it, and presses a button.
void Answer(QDialog& dialog, const char* field, const char* text, const char* button) {
  QTest::keyClicks(&Child<QLineEdit>(dialog, field), QString::fromUtf8(text));
  QTest::mouseClick(&Child<QPushButton>(dialog, button), Qt::LeftButton);
}

}  // namespace

/// The whole way through the real windows, by mouse and keyboard.
class ByHandTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    application_ = std::make_unique<shell::GuardedApplication>(argumentCount_, arguments_.data());
  }

  void AProductIsMadeEditedSavedClosedAndOpenedAgain() {
    const TemporaryFolder home;
    UseHome(home);
    tools::DesktopDialogs dialogs;
    OpenedProgram program(dialogs);
    dialogs.SetParent(&program.window);
    QVERIFY(QTest::qWaitForWindowActive(&program.window));
    ModalScript script;

    script.Expect<QDialog>("frmNewProduct", [](QDialog& form) {
      Child<QLineEdit>(form, "txtAuthor").setText("Anna");
      Answer(form, "txtProductTitle", "Demo", "cmdOK");
    });
    QTest::keySequence(&program.window, QKeySequence::New);
    QCOMPARE(program.window.windowTitle(), "Packwright - Demo.product");
    const std::string path = program.project.ProductPath();

    program.Click("product");
    script.Expect<QDialog>("inputBox",
                           [](QDialog& box) { Answer(box, "txtInput", "1.2.0", "cmdOK"); });
    program.PickFromMenu("mnuPopupProduct", "mnuProductAddVersion");
    QTest::keyClick(&program.Tree(), Qt::Key_Down);
    script.Expect<QDialog>("inputBox",
                           [](QDialog& box) { Answer(box, "txtInput", "Hilfe & Co", "cmdOK"); });
    program.PickFromMenu("mnuPopupVersion", "mnuVersionAddComponent");

    program.Click("product");
    auto& rows = Child<QTreeView>(program.window, "lsvProps");
    const QRect title = rows.visualRect(rows.model()->index(0, 1));
    script.Expect<QDialog>("frmEditProperty",
                           [](QDialog& form) { Answer(form, "txtNewValue", "Demo 2", "cmdOK"); });
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, title.center());
    QTest::mouseDClick(rows.viewport(), Qt::LeftButton, {}, title.center());
    script.ExpectAndPress("messageBox", "cmdYes");  // apply the page?
    program.Press("close");
    QVERIFY(!program.project.IsOpen());

    QVERIFY(program.operations.OpenProduct(path));
    QCOMPARE(program.Node("product")->text(0), "Demo 2");
    QCOMPARE(program.Node("v1")->text(0), "Version 1.2.0");
    QCOMPARE(program.Node("v1c1")->text(0), "Hilfe & Co");
    QCOMPARE(program.project.ReadProductSetting("Product", "Author", ""), "Anna");
  }

  void AnExceptionThatLeavesAHandlerIsShownAndTheProgramGoesOn() {
    class Thrower : public QObject {
     public:
      bool event(QEvent* /*event*/) override { throw std::runtime_error("daneben"); }
    };
    Thrower thrower;
    tools::DesktopDialogs dialogs;
    application_->SetDialogs(&dialogs);
    ModalScript script;
    script.ExpectAndPress("messageBox", "cmdOK");
    QEvent event(QEvent::User);
    QVERIFY(QApplication::sendEvent(&thrower, &event));
    application_->SetDialogs(nullptr);
  }

 private:
  std::string program_ = "packwright";
  std::array<char*, 2> arguments_{program_.data(), nullptr};
  int argumentCount_ = 1;
  std::unique_ptr<shell::GuardedApplication> application_;
};

}  // namespace tests

QTEST_APPLESS_MAIN(tests::ByHandTest)
#include "ByHandTest.moc"
