#include <QPushButton>
#include <QTest>

#include "tests/support/ScriptedDialogs.h"
#include "tools/Error.h"
#include "tools/desktop/Guard.h"

namespace tests {

class GuardTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void AnErrorBecomesAMessageBoxAndTheProgramGoesOn() {
    ScriptedDialogs dialogs;
    QPushButton button;
    bool worked = false;
    connect(&button, &QPushButton::clicked, this, tools::Guarded(dialogs, [] {
      throw tools::Error("Der Ordner ist schreibgeschützt.");
    }));
    connect(&button, &QPushButton::clicked, this,
            tools::Guarded(dialogs, [&worked](bool checked) { worked = !checked; }));
    QTest::mouseClick(&button, Qt::LeftButton);
    QVERIFY(worked);
    QCOMPARE(dialogs.Messages().size(), 1U);
    const tools::Message& message = dialogs.Messages().front();
    QCOMPARE(message.text, "Der Ordner ist schreibgeschützt.");
    QCOMPARE(message.caption, "Fehler");
    QCOMPARE(message.icon, tools::MessageIcon::Exclamation);
  }

  void TellsWhetherTheHandlerCameToItsEnd() {
    ScriptedDialogs dialogs;
    QVERIFY(tools::Guard(dialogs, [] {}));
    QVERIFY(!tools::Guard(dialogs, [] { throw std::out_of_range("zu weit"); }));
    QCOMPARE(dialogs.Messages().back().text, "zu weit");
  }
};

}  // namespace tests

QTEST_MAIN(tests::GuardTest)
#include "GuardTest.moc"
