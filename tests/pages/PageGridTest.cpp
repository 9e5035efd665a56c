#include <QKeyEvent>

#include "tests/support/desktop/PageFixture.h"

namespace tests {

class PageGridTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void KeysEditTheFirstRowAfterTabAndOpenOneDialogEach_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Enter") << Qt::Key_Return;
    QTest::newRow("Enter of the number block") << Qt::Key_Enter;
    QTest::newRow("F2") << Qt::Key_F2;
  }
  void KeysEditTheFirstRowAfterTabAndOpenOneDialogEach() {
    QFETCH(const Qt::Key, key);
    PageFixture f;
    f.Open("tabProductDetails", 0, 0);
    QAbstractItemView& list = Grid(*f.page);
    f.area.setFocus();
    list.setFocus(Qt::TabFocusReason);
    ModalScript script;
    script.Expect<QWidget>("frmEditProperty", [&](QWidget& dialog) {
      QTest::keyClick(&list, key);  // came before the dialog had the keyboard
      QCOMPARE(dialog.windowTitle(), "Eigenschaft ändern");
      QCOMPARE(Shown(dialog, {"lblPrompt", "lblOldValue", "lblNewValue", "cmdReset"}),
               "Geben Sie den neuen Wert für \"Produktbezeichnung\" ein:|Alter Wert:|"
               "Neuer Wert:|Standard");
      Press(dialog, "cmdCancel");
    });
    for (int i = 0; i < 2; ++i) QTest::keyClick(&list, key);
    QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, {}, true);
    QTest::qWait(20);  // the dialog has come and gone
    QApplication::sendEvent(&list, &repeated);
    QTest::qWait(20);  // another one would have come
  }
};

}  // namespace tests

QTEST_MAIN(tests::PageGridTest)
#include "PageGridTest.moc"
