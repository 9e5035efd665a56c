#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QTest>

#include "tests/support/desktop/Widgets.h"
#include "tools/desktop/BusyNotice.h"
#include "tools/desktop/DesktopDialogs.h"

namespace tests {

namespace {

class PaintCounter : public QObject {
  Q_OBJECT

 public:
  PaintCounter() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count_;
    return false;
  }
  [[nodiscard]] int Count() const { return count_; }

 private:
  int count_ = 0;
};

void PostKey(QWidget& widget) {
  QCoreApplication::postEvent(&widget,
                              new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a"));
}

}  // namespace

class BusyNoticeTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PaintsItselfAtOnceAndOnProgressWithoutAnEventLoop() {
    QWidget window;
    window.resize(800, 600);
    window.show();
    tools::DesktopDialogs dialogs(&window);
    const PaintCounter paints;
    const int token = dialogs.ShowBusyNotice("Das Setup wird erzeugt, bitte warten...");
    auto* notice = VisibleWindow("busyNotice");
    QVERIFY(notice != nullptr);
    QVERIFY(paints.Count() > 0);
    QVERIFY(window.geometry().contains(notice->geometry()));
    QVERIFY(!Child(*notice, "prgProgress").isVisible());

    const int paintsBefore = paints.Count();
    dialogs.UpdateBusyNotice(
        token,
        {.filesDone = 1200, .filesTotal = 5000, .bytesDone = 3 << 20, .bytesTotal = 4 << 20});
    QVERIFY(paints.Count() > paintsBefore);
    QCOMPARE(Child<QLabel>(*notice, "lblProgress").text(),
             "1.200 von 5.000 Dateien, 3,0 MB von 4,0 MB");
    auto& bar = Child<QProgressBar>(*notice, "prgProgress");
    QCOMPARE(bar.value() * 4, bar.maximum() * 3);
    QVERIFY(notice->contentsRect().contains(bar.geometry()));
  }

  void ReportsInQuickSuccessionAlwaysShowTheLastOne() {
    tools::BusyNotice notice("Bitte warten", nullptr);
    const PaintCounter paints;
    for (std::uint64_t done = 0; done <= 100'000; ++done) {
      notice.ShowProgress({.filesDone = done, .filesTotal = 100'000});
    }
    QVERIFY(paints.Count() < 50'000);
    auto& bar = Child<QProgressBar>(notice, "prgProgress");
    QCOMPARE(bar.value(), bar.maximum());
    QCOMPARE(Child<QLabel>(notice, "lblProgress").text(), "100.000 von 100.000 Dateien");
  }

  void WhatTheUserDoesMeanwhileIsDropped() {
    QLineEdit edit;
    edit.show();
    tools::DesktopDialogs dialogs(&edit);
    const int first = dialogs.ShowBusyNotice("Bitte warten");
    const int second = dialogs.ShowBusyNotice("Noch etwas");
    PostKey(edit);
    dialogs.UpdateBusyNotice(first, {.filesDone = 1});
    PostKey(edit);
    dialogs.WithdrawBusyNotice(first);
    QVERIFY(VisibleWindow("busyNotice") != nullptr);
    dialogs.WithdrawBusyNotice(second);
    dialogs.WithdrawBusyNotice(second);
    QVERIFY(VisibleWindow("busyNotice") == nullptr);
    QCOMPARE(edit.text(), "");
    PostKey(edit);
    QCoreApplication::processEvents();
    QCOMPARE(edit.text(), "a");
  }

  void ANoticeThatNobodyWithdrawsLocksNothingAndCanBeClosed() {
    QLineEdit edit;
    edit.show();
    tools::DesktopDialogs dialogs(&edit);
    const int token = dialogs.ShowBusyNotice("Bitte warten");
    QTest::keyClicks(&edit, "b");
    QCOMPARE(edit.text(), "b");
    QTest::keyClick(VisibleWindow("busyNotice"), Qt::Key_Escape);
    QVERIFY(VisibleWindow("busyNotice") == nullptr);
    dialogs.WithdrawBusyNotice(token);
  }

  void ANoticeThatNobodyWithdrawsGoesWithItsWindow() {
    auto window = std::make_unique<QWidget>();
    window->show();
    tools::DesktopDialogs dialogs(window.get());
    const int token = dialogs.ShowBusyNotice("Bitte warten");
    dialogs.ShowBusyNotice("Noch etwas");
    window.reset();
    QVERIFY(VisibleWindow("busyNotice") == nullptr);
    dialogs.UpdateBusyNotice(token, {.filesDone = 1});
    dialogs.WithdrawBusyNotice(token);
  }
};

}  // namespace tests

QTEST_MAIN(tests::BusyNoticeTest)
#include "BusyNoticeTest.moc"
