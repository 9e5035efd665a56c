#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "grid/frmEditProperty.h"
#include "tests/support/desktop/Widgets.h"

namespace tests {

namespace {

// What a window system sends for the close box.
void PressCloseBox(QWidget& window) {
  QCloseEvent event;
  QSpontaneKeyEvent::setSpontaneous(&event);
  qApp->notify(&window, &event);
}

}  // namespace

class frmEditPropertyTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    dialog_ = std::make_unique<grid::frmEditProperty>();
    dialog_->SetPrompt("Geben Sie den neuen Wert für \"Titel\" ein:");
    dialog_->SetValue("alter Text");
  }

  void ShowsTheValueTwiceAndSelectsTheNewOne() {
    Show();
    QCOMPARE(dialog_->windowTitle(), "Eigenschaft ändern");
    QCOMPARE(Child<QLabel>(*dialog_, "lblPrompt").text(),
             "Geben Sie den neuen Wert für \"Titel\" ein:");
    QCOMPARE(Child<QLabel>(*dialog_, "lblOldValue").text(), "Alter Wert:");
    QCOMPARE(Child<QLabel>(*dialog_, "lblNewValue").text(), "Neuer Wert:");
    QCOMPARE(Child<QPushButton>(*dialog_, "cmdOK").text(), "OK");
    QCOMPARE(Child<QPushButton>(*dialog_, "cmdCancel").text(), "Abbrechen");
    QVERIFY(!Child(*dialog_, "cmdReset").isVisible());
    QCOMPARE(OldValue().text(), "alter Text");
    QCOMPARE(NewValue().selectedText(), "alter Text");
    QVERIFY(NewValue().hasFocus());
  }

  void APastedLineBreakBecomesABlank() {
    Show();
    QApplication::clipboard()->setText("ein\nPfad\r\n");
    QTest::keyClick(&NewValue(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(NewValue().text(), "ein Pfad  ");
  }

  void OkGivesTheTextAsItWasTyped() {
    Show();
    QTest::keyClicks(&NewValue(), "  abc  ");
    QTest::keyClick(&NewValue(), Qt::Key_Return);
    QVERIFY(!dialog_->isVisible());
    QVERIFY(dialog_->Apply());
    QCOMPARE(dialog_->Value(), "  abc  ");
  }

  void CancelEscapeAndTheCloseBoxKeepTheValue_data() {
    QTest::addColumn<std::function<void()>>("leave");
    QTest::newRow("cmdCancel") << std::function<void()>(
        [this] { QTest::mouseClick(&Child<QPushButton>(*dialog_, "cmdCancel"), Qt::LeftButton); });
    QTest::newRow("Escape") << std::function<void()>(
        [this] { QTest::keyClick(dialog_.get(), Qt::Key_Escape); });
    QTest::newRow("close box") << std::function<void()>([this] { PressCloseBox(*dialog_); });
    QTest::newRow("the program") << std::function<void()>([this] { dialog_->close(); });
  }

  void CancelEscapeAndTheCloseBoxKeepTheValue() {
    QFETCH(std::function<void()>, leave);
    Show();
    QTest::keyClicks(&NewValue(), "neu");
    leave();
    QVERIFY(!dialog_->isVisible());
    QVERIFY(!dialog_->Apply());
    QCOMPARE(dialog_->Value(), "alter Text");
  }

  void TheResetButtonFillsInTheDefault() {
    dialog_->SetEnableDefaultValue(true);
    dialog_->SetDefaultValue("Vorgabe");
    Show();
    auto& reset = Child<QPushButton>(*dialog_, "cmdReset");
    QVERIFY(reset.isVisible());
    QCOMPARE(reset.text(), "Standard");
    QTest::mouseClick(&reset, Qt::LeftButton);
    QVERIFY(dialog_->isVisible());
    QCOMPARE(NewValue().text(), "Vorgabe");
    QCOMPARE(OldValue().text(), "alter Text");
    QTest::mouseClick(&Child<QPushButton>(*dialog_, "cmdOK"), Qt::LeftButton);
    QCOMPARE(dialog_->Value(), "Vorgabe");
  }

  void ComingBackFromAnotherWindowKeepsWhatWasTyped() {
    Show();
    dialog_->SetValue("anderer Text");
    Leave();
    QCOMPARE(NewValue().selectedText(), "anderer Text");
    QTest::keyClicks(&NewValue(), "getippt");
    Leave();
    QCOMPARE(NewValue().text(), "getippt");
  }

  void TabFollowsTheGivenOrder() {
    dialog_->SetEnableDefaultValue(true);
    Show();
    QStringList order;
    for (int i = 0; i < 5; ++i) {
      order += QApplication::focusWidget()->objectName();
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(order, QStringList({"txtNewValue", "txtOldValue", "cmdReset", "cmdCancel", "cmdOK"}));
    QCOMPARE(QApplication::focusWidget()->objectName(), "txtNewValue");
  }

  void LongTextsStayWholeAndStretchNothing() {
    const QString word(50'000, u'x');
    dialog_->SetValue(word);
    dialog_->SetPrompt(word);
    Show();
    QCOMPARE(NewValue().text(), word);
    QVERIFY(dialog_->width() < 1000);
  }

 private:
  void Show() {
    dialog_->open();
    QVERIFY(QTest::qWaitForWindowActive(dialog_.get()));
  }

  void Leave() {
    QWidget other;
    other.show();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    other.hide();
    dialog_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(dialog_.get()));
  }

  QLineEdit& NewValue() { return Child<QLineEdit>(*dialog_, "txtNewValue"); }
  QLineEdit& OldValue() { return Child<QLineEdit>(*dialog_, "txtOldValue"); }

  std::unique_ptr<grid::frmEditProperty> dialog_;
};

}  // namespace tests

QTEST_MAIN(tests::frmEditPropertyTest)
#include "frmEditPropertyTest.moc"
