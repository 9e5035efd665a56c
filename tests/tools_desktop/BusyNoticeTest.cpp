#include <QKeyEvent>
#include <QLineEdit>
#include <QProgressBar>

#include "tests/support/desktop/Widgets.h"
#include "tools/desktop/BusyNotice.h"
#include "tools/desktop/DesktopDialogs.h"

namespace tests {

namespace {

class PaintCounter : public QObject {
 public:
  PaintCounter() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }

  int count = 0;
};

/// A window with a text box, and the dialogs that belong to it.
struct Fixture {
  Fixture() {
    edit->resize(800, 600);
    edit->show();
  }

  /// What the user types comes with the next events.
  void TypeSoon() const {
    QApplication::postEvent(edit.get(),
                            new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a"));
  }

  std::unique_ptr<QLineEdit> edit = std::make_unique<QLineEdit>();
  tools::DesktopDialogs dialogs{edit.get()};
  int token = dialogs.ShowBusyNotice("Das Setup wird erzeugt, bitte warten...");
};

}  // namespace

class BusyNoticeTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PaintsItselfAtOnceAndOnProgressWithoutAnEventLoop() {
    const PaintCounter paints;
    Fixture f;
    QWidget* notice = VisibleWindow("busyNotice");
    QVERIFY(notice != nullptr && paints.count > 0);
    QVERIFY(!Child(*notice, "prgProgress").isVisible());
    const int paintsBefore = paints.count;
    f.dialogs.UpdateBusyNotice(
        f.token,
        {.filesDone = 1200, .filesTotal = 5000, .bytesDone = 3 << 20, .bytesTotal = 4 << 20});
    QVERIFY(paints.count > paintsBefore);
    QCOMPARE(Shown(*notice, "lblProgress"), "1.200 von 5.000 Dateien, 3,0 MB von 4,0 MB");
    const auto& bar = Child<QProgressBar>(*notice, "prgProgress");
    QCOMPARE(bar.value() * 4, bar.maximum() * 3);
    QVERIFY(notice->contentsRect().contains(bar.geometry()));
  }

  void ReportsInQuickSuccessionAlwaysShowTheLastOne() {
    tools::BusyNotice notice("Bitte warten", nullptr);
    const PaintCounter paints;
    for (std::uint64_t done = 0; done <= 100'000; ++done) {
      notice.ShowProgress({.filesDone = done, .filesTotal = 100'000});
    }
    QVERIFY(paints.count < 50'000);
    const auto& bar = Child<QProgressBar>(notice, "prgProgress");
    QCOMPARE(bar.value(), bar.maximum());
    QCOMPARE(Shown(notice, "lblProgress"), "100.000 von 100.000 Dateien");
  }

  void WhatTheUserDoesMeanwhileIsDropped() {
    Fixture f;
    const int second = f.dialogs.ShowBusyNotice("Noch etwas");
    f.TypeSoon();
    f.dialogs.UpdateBusyNotice(f.token, {.filesDone = 1});
    f.TypeSoon();
    f.dialogs.WithdrawBusyNotice(f.token);
    QVERIFY(VisibleWindow("busyNotice") != nullptr);
    for (int i = 0; i < 2; ++i) f.dialogs.WithdrawBusyNotice(second);
    QVERIFY(VisibleWindow("busyNotice") == nullptr);
    QCOMPARE(f.edit->text(), "");
    f.TypeSoon();
    QApplication::processEvents();
    QCOMPARE(f.edit->text(), "a");
  }

  void ANoticeThatNobodyWithdrawsLocksNothingAndGoesByEscapeOrWithItsWindow() {
    Fixture f;
    f.dialogs.ShowBusyNotice("Noch etwas");
    QTest::keyClicks(f.edit.get(), "b");
    QCOMPARE(f.edit->text(), "b");
    QTest::keyClick(VisibleWindow("busyNotice"), Qt::Key_Escape);
    QVERIFY(VisibleWindow("busyNotice") != nullptr);
    f.edit.reset();
    QVERIFY(VisibleWindow("busyNotice") == nullptr);
    f.dialogs.UpdateBusyNotice(f.token, {.filesDone = 1});
    f.dialogs.WithdrawBusyNotice(f.token);
  }
};

}  // namespace tests

QTEST_MAIN(tests::BusyNoticeTest)
#include "BusyNoticeTest.moc"
