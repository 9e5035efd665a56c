#include <QAbstractItemView>
#include <QClipboard>
#include <QCompleter>
#include <QToolButton>

#include "grid/frmEditProperty.h"
#include "tests/support/desktop/Widgets.h"

namespace tests {

enum class ResetButton { Hidden, Shown };

grid::GridTexts Texts() {
  grid::GridTexts texts;
  texts.knownValues = "Bekannte Werte";
  return texts;
}

/// The dialog as it is opened for a value.
struct Fixture {
  explicit Fixture(const QString& value = "alter Text", ResetButton reset = ResetButton::Hidden) {
    dialog.SetPrompt("Neuer Wert für " + value);
    dialog.SetValue(value);
    dialog.SetEnableDefaultValue(reset == ResetButton::Shown);
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

  grid::frmEditProperty dialog{Texts()};
  QLineEdit& newValue = Child<QLineEdit>(dialog, "txtNewValue");
};

class frmEditPropertyTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TypingReplacesTheValueHoweverLong() {
    const QString word(50'000, u'x');
    const Fixture f(word);
    QCOMPARE(Shown(f.dialog, {"lblPrompt", "txtOldValue"}), "Neuer Wert für " + word + "|" + word);
    QVERIFY(f.newValue.hasFocus());
    QCOMPARE(f.newValue.selectedText(), word);
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
    const std::function<void(QDialog&)> waysOut[] = {
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
    const Fixture f("alter Text", ResetButton::Shown);
    Press(f.dialog, "cmdReset");
    QCOMPARE(Shown(f.dialog, {"txtNewValue", "txtOldValue"}), "Vorgabe|alter Text");
    Press(f.dialog, "cmdOK");
    QCOMPARE(f.dialog.Value(), "Vorgabe");
  }

  void AKnownValueIsPickedFromTheListBelowTheField() {
    Fixture f("38");
    f.dialog.SetHelp({.values = {{"38", "Programme"}, {"2001", "Installationsordner"}}});
    QAbstractItemView& list = *f.dialog.findChild<QCompleter*>()->popup();
    QCOMPARE(f.newValue.findChild<QToolButton*>()->text(), "Bekannte Werte");
    for (const Qt::KeyboardModifiers held : {Qt::NoModifier, Qt::AltModifier}) {
      QTest::keyClick(&f.newValue, Qt::Key_Down, held);
      QVERIFY(list.isVisible());
      QCOMPARE(list.currentIndex().data(), "38");
      QTest::keyClick(&list, Qt::Key_Escape);
    }
    QTest::keyClick(&f.newValue, Qt::Key_Down);
    QTest::keyClicks(&f.newValue, "install");
    QCOMPARE(Rows(list), "2001");
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Return);
    QCOMPARE(f.newValue.text(), "2001");
    QTest::keyClicks(&f.newValue, "3");
    QVERIFY(!list.isVisible());
    QTest::keyClick(&f.newValue, Qt::Key_Return);
    QCOMPARE(f.dialog.Value(), "3");
  }

  void AFolderIsBrowsedFor() {
    Fixture f;
    QVERIFY(Child(f.dialog, "cmdBrowse").isHidden());
    QString chosen;
    f.dialog.SetHelp({.browse = [&chosen] { return chosen; }});
    for (const char* folder : {"/ordner", ""}) {
      chosen = folder;
      Press(f.dialog, "cmdBrowse");
      QCOMPARE(f.newValue.text(), "/ordner");
    }
  }
};

}  // namespace tests

QTEST_MAIN(tests::frmEditPropertyTest)
#include "frmEditPropertyTest.moc"
