#include <QTest>
#include <csignal>

#include "app/EndSignals.h"

namespace tests {

class EndSignalsTest_posix : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ComeAsCallsInTheEventLoop() {
    int ends = 0;
    const app::EndSignals signals_([&ends] { ++ends; });
    QCOMPARE(std::raise(SIGTERM), 0);
    QTRY_COMPARE(ends, 1);
    QCOMPARE(std::raise(SIGHUP) + std::raise(SIGTERM), 0);
    QTRY_COMPARE(ends, 2);
  }
};

}  // namespace tests

QTEST_MAIN(tests::EndSignalsTest_posix)
#include "EndSignalsTest_posix.moc"
