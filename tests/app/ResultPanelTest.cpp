#include <QDir>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTabBar>

#include "shell/ResultPanel.h"
#include "tests/support/TestProduct.h"
#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/OpenedProgram.h"
#include "tools/desktop/wizard/WizardStructure.h"

namespace tests {

/// From a build or a check back to the place that needs work, and to the setup itself.
class ResultPanelTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    folder_ = std::make_unique<TemporaryFolder>();
    UseHome(*folder_);
    product_ = std::make_unique<TestProduct>(*folder_);
    product_->AddComponent("Kern",
                           {product_->File(folder_->Write("a.txt", "a")),
                            product_->File(folder_->Path("fehlt.txt"), "TargetFolder=2002\n")});
    script_ = std::make_unique<ModalScript>();
    program_ = std::make_unique<OpenedProgram>();
    program_->Open(folder_->Path(TestProduct::kFile));
    program_->Click("v1");
  }

  void cleanup() {
    program_.reset();
    script_.reset();
  }

  void ACheckLeadsToTheEntryThatItIsAbout() {
    QTest::keyClick(&program_->window, Qt::Key_F5);
    QTRY_COMPARE(Shown(Panel(), "lblOutcome"), "Version 1.0.0: geprüft: 1 Fehler, 0 Warnungen");
    QVERIFY(!Child(Panel(), "cmdShowLog").isEnabled());
    const int row = Findings().visualItemRect(Findings().topLevelItem(0)).height();
    QTRY_COMPARE(Findings().viewport()->height() / row, 1);  // no room is lost for empty rows
    // The entry before it is gone meanwhile, so that its number is another one.
    folder_->Write(TestProduct::kComponentFile,
                   "[Component]\nTitle=Kern\n[Files]\nCount=1\n[File1]\n" +
                       TestProduct::File(folder_->Path("fehlt.txt"), "TargetFolder=2002\n"));
    DoubleClick(Findings(), Findings().model()->index(0, 0));
    QCOMPARE(program_->SelectedKey(), "v1c1");
    const auto& files = Child<QTreeView>(program_->window, "lsvBrowser");
    QVERIFY(files.currentIndex().data().toString().endsWith("fehlt.txt"));
    QVERIFY(files.isVisible());
    // Its page stays, with what the author does there.
    Edit(*script_, Child(program_->window, "EditorTab1"), "Zielordner (allg.)", "2003");
    for (const char* filter : {"fehlt", "anderes"}) {
      Type(Child(program_->window, "txtFilter"), filter);
      Child<QComboBox>(program_->window, "cmbDestinationFolder").setCurrentIndex(0);
      Child<QTabBar>(program_->window, "tabDataEditor").setCurrentIndex(1);
      Activate(program_->window);
      DoubleClick(Findings(), Findings().model()->index(0, 0));
      QVERIFY(files.hasFocus());
      QVERIFY(files.currentIndex().data().toString().endsWith("fehlt.txt"));
      QCOMPARE(Shown(program_->window, "txtFilter"), QString(filter) == "fehlt" ? "fehlt" : "");
    }
    QCOMPARE(Shown(program_->window, "lblSaveState"), "Geändert");
    Activate(program_->window);
    program_->Press("save");
    program_->window.resize(program_->window.minimumSize());
    const QWidget& page = Child(program_->window, "EditorTab1");
    QVERIFY(page.height() >= page.minimumSizeHint().height());  // else parts lie over each other
    folder_->Write(TestProduct::kComponentFile, "[Component]\nTitle=Kern\n");
    DoubleClick(Findings(), Findings().model()->index(0, 0));
    QCOMPARE(Child<QStatusBar>(program_->window, "sbrMain").currentMessage(),
             "Den Eintrag gibt es nicht mehr.");
    Activate(program_->window);
    Findings().setFocus();
    QTest::keyClick(&Findings(), Qt::Key_Escape);
    QVERIFY(Panel().isHidden() && program_->Tree().hasFocus());
  }

  void ABuildIsToldAndMadeAgainWithoutTheWizard() {
    script_->Expect<tools::WizardStructure>("wizardStructure", [](tools::WizardStructure& frame) {
      for (int i = 0; i < 3; ++i) Press(frame, "cmdNext");
      QTest::keyClick(&Child(frame, "chkMakeZip"), Qt::Key_Space);
      Press(frame, "cmdNext");
      Press(frame, "cmdFinish");
    });
    script_->ExpectAndPress("messageBox", "cmdOK");  // of the errors
    script_->ExpectAndPress("messageBox", "cmdOK");
    QTest::keyClick(&program_->window, Qt::Key_B, Qt::ControlModifier);
    QCOMPARE(Shown(Panel(), "lblOutcome"), "Version 1.0.0: Setup erstellt: 1 Fehler, 0 Warnungen");
    QVERIFY(Shown(Panel(), "lblFacts")
                .contains(QDir::toNativeSeparators("Ausgabe/Debug") + "\n1 Datei, "));
    QVERIFY(Rows(Findings()).startsWith("Kern=2=Die Quelldatei fehlt: "));
    script_->Expect<QWidget>("textWindow", [](QWidget& window) {
      QVERIFY(Shown(window, "txtText").contains("File missing: "));
      Press(window, "cmdClose");
    });
    Press(Panel(), "cmdShowLog");

    folder_->Write("fehlt.txt", "da");
    for (const char* answer : {"cmdNo", "cmdYes"}) {
      Activate(program_->window);
      script_->ExpectAndPress("messageBox", answer);  // whether the old setup may go
      QTest::keyClick(&program_->window, Qt::Key_F7);
      QVERIFY(program_->window.findChild<QWidget*>("busyNotice") == nullptr);
      QVERIFY(Child(Panel(), "cmdShowLog").isEnabled());  // the setup before lies there
    }
    QCOMPARE(Shown(Panel(), "lblOutcome"), "Version 1.0.0: Setup erstellt");
    QVERIFY(folder_->Holds("Produkt/Ausgabe/Debug/Probe.zip"));
    Panel().hide();
    program_->PickFromMenu("mnuVersionShowResult");
    QVERIFY(Panel().isVisible());
    Activate(program_->window);
    QTest::keyClick(&program_->window, Qt::Key_F5);
    QTRY_COMPARE(Shown(Panel(), "lblOutcome"), "Version 1.0.0: geprüft: Keine Beanstandungen");
    script_->ExpectChoosing("browseFolder",
                            tools::ToQString(folder_->Path("Produkt/Ausgabe/Debug")));
    script_->Expect<QWidget>("textWindow", [](QWidget& window) {
      QCOMPARE(Shown(window, "txtText"), "Beide Setups installieren dasselbe.");
      Press(window, "cmdClose");
    });
    Press(Panel(), "cmdCompare");

    // Another version's setup takes its place.
    engine::BuildResult other;
    other.version = 2;
    other.summary.outputFolder = folder_->Path("Produkt/Ausgabe/Debug");
    program_->window.Results().ShowBuild(other, "2.0.0");
    QVERIFY(Child(Panel(), "cmdShowLog").isEnabled());
    Activate(program_->window);
    QTest::keyClick(&program_->window, Qt::Key_F5);
    QVERIFY(!Child(Panel(), "cmdShowLog").isEnabled());
  }

 private:
  QWidget& Panel() const { return Child(program_->window, "pnlResult"); }
  QTreeWidget& Findings() const { return Child<QTreeWidget>(Panel(), "lsvFindings"); }

  std::unique_ptr<TemporaryFolder> folder_;
  std::unique_ptr<TestProduct> product_;
  std::unique_ptr<ModalScript> script_;
  std::unique_ptr<OpenedProgram> program_;
};

}  // namespace tests

QTEST_MAIN(tests::ResultPanelTest)
#include "ResultPanelTest.moc"
