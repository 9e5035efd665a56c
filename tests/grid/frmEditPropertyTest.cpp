#include <QClipboard>

#include "grid/frmEditProperty.h"
#include "tests/support/desktop/Widgets.h"

namespace tests {

namespace {

/// The dialog as it is opened for a value.
struct Fixture {
  explicit Fixture(const QString& value = "alter Text", bool withReset = false) {
    dialog.SetPrompt("Neuer Wert für " + value);
    dialog.SetValue(value);
    dialog.SetEnableDefaultValue(withReset);
    dialog.SetDefaultValue("Vorgabe");
    dialog.open();
    Activate(dialog);
  }

  void LeaveAndComeBack() {
    QWidget other;
    other.show();
    Activate(other);
    other.hide();
    Activate(dialog);
  }

  grid::frmEditProperty dialog{{.accessibleName = "",
                                .notEditable = "",
                                .editCaption = "Eigenschaft ändern",
                                .prompt = "",
                                .oldValue = "Alter Wert:",
                                .newValue = "Neuer Wert:",
                                .reset = "Standard"}};
  QLineEdit& newValue = Child<QLineEdit>(dialog, "txtNewValue");
};

}  // namespace

class frmEditPropertyTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ShowsTheValueTwice() {
    const Fixture f;
    QCOMPARE(f.dialog.windowTitle(), "Eigenschaft ändern");
    QCOMPARE(Shown(f.dialog, {"lblPrompt", "lblOldValue", "lblNewValue", "txtOldValue", "cmdOK",
                              "cmdCancel"}),
             "Neuer Wert für alter Text|Alter Wert:|Neuer Wert:|alter Text|OK|Abbrechen");
    QVERIFY(f.newValue.hasFocus());
    QVERIFY(!Child(f.dialog, "cmdReset").isVisible());
    QCOMPARE(f.newValue.selectedText(), "alter Text");
  }

  void OkGivesTheTextAsItWasTyped() {
    Fixture f;
    QTest::keyClicks(&f.newValue, "  abc  ");
    QApplication::clipboard()->setText("ein\nPfad\r\n");
    QTest::keyClick(&f.newValue, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&f.newValue, Qt::Key_Return);
    QVERIFY(!f.dialog.isVisible());
    QVERIFY(f.dialog.Apply());
    QCOMPARE(f.dialog.Value(), "  abc  ein Pfad  ");
  }

  void EveryOtherWayOutKeepsTheValue() {
    const std::vector<std::function<void(QDialog&)>> waysOut{
        [](QDialog& dialog) { Press(dialog, "cmdCancel"); },
        [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); },
        [](QDialog& dialog) { PressCloseBox(dialog); }, [](QDialog& dialog) { dialog.close(); }};
    for (const auto& leave : waysOut) {
      Fixture f;
      QTest::keyClicks(&f.newValue, "neu");
      leave(f.dialog);
      QVERIFY(!f.dialog.isVisible());
      QVERIFY(!f.dialog.Apply());
      QCOMPARE(f.dialog.Value(), "alter Text");
    }
  }

  void ComingBackFromAnotherWindowKeepsWhatWasTyped() {
    Fixture f;
    f.dialog.SetValue("anderer Text");
    f.LeaveAndComeBack();
    QCOMPARE(f.newValue.selectedText(), "anderer Text");
    QTest::keyClicks(&f.newValue, "getippt");
    f.LeaveAndComeBack();
    QCOMPARE(f.newValue.text(), "getippt");
  }

  void TheResetButtonFillsInTheDefault() {
    const Fixture f("alter Text", true);
    for (const char* name : {"txtNewValue", "txtOldValue", "cmdReset", "cmdCancel", "cmdOK"}) {
      QCOMPARE(QApplication::focusWidget()->objectName(), name);
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QVERIFY(f.newValue.hasFocus());
    Press(f.dialog, "cmdReset");
    QCOMPARE(Shown(f.dialog, {"cmdReset", "txtNewValue", "txtOldValue"}),
             "Standard|Vorgabe|alter Text");
    Press(f.dialog, "cmdOK");
    QCOMPARE(f.dialog.Value(), "Vorgabe");
  }

  void LongTextsStayWhole() {
    const QString word(50'000, u'x');
    const Fixture f(word);
    QCOMPARE(f.newValue.text(), word);
    QVERIFY(f.dialog.width() < 1000);
  }
};

}  // namespace tests

QTEST_MAIN(tests::frmEditPropertyTest)
#include "frmEditPropertyTest.moc"
