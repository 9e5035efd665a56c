#include <QPlainTextEdit>
#include <QTabBar>

#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/OpenedProgram.h"
#include "tools/desktop/wizard/WizardStructure.h"

namespace tests {

/// What somebody does who packages software every week, on a copy of the example.
class EverydayTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    UseHome(work_);
    std::filesystem::copy(QT_TESTCASE_SOURCEDIR "/../examples/Messprotokoll",
                          work_.Path("Messprotokoll"), std::filesystem::copy_options::recursive);
    for (int i = 100; i < 600; ++i) work_.Write("neu/teil" + std::to_string(i) + ".dat", "x");
    program_ = std::make_unique<OpenedProgram>();
    script_ = std::make_unique<ModalScript>();
  }

  void TheNextVersionIsMadeFromTheLastOne() {
    const std::string product = work_.Path("Messprotokoll/Messprotokoll.product");
    program_->Open(product);
    program_->Press("close");
    QVERIFY(Child(program_->window, "lnkProduct1").hasFocus());
    Press(program_->window, "lnkProduct1");
    QTRY_COMPARE(program_->window.windowTitle(), "Packwright - Messprotokoll.product");
    program_->Click("v2");
    Build("alt");

    program_->Click("product");
    script_->ExpectTyping("inputBox", "txtInput", "1.2.0");
    program_->PickFromMenu("mnuProductAddVersion");
    program_->Click("v3");
    script_->Expect<QDialog>("versionChoice", [](QDialog& dialog) {
      auto& versions = Child<QAbstractItemView>(dialog, "lstVersions");
      DoubleClick(versions, versions.model()->index(0, 0));
    });
    Press(program_->window, "lnkTakeOver");
    QCOMPARE(program_->window.focusWidget(), &program_->Tree());
    QVERIFY(program_->Nodes().contains("v3=Version 1.2.0|[v3c1=Programm]|[v3c2=Handbuch]"));
  }

  void ManyFilesAreAddedFilteredAndChanged() {
    program_->Click("v3c1");
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(tools::ToQString(work_.Path("neu")))});
    script_->ExpectAndPress("messageBox", "cmdNo");  // with subfolders?
    Drop(Page(), {9, 9}, data, Qt::CopyAction);
    QTRY_COMPARE(Files().model()->rowCount(), 500);

    Type(Child(Page(), "txtFilter"), "teil12 teil");
    QCOMPARE(Files().model()->rowCount(), 10);
    Type(Child(Page(), "txtFilter"), "teil1");
    Click(Files(), Files().model()->index(0, 0));
    Click(Files(), Files().model()->index(19, 0), Qt::ShiftModifier);
    Edit(*script_, Page(), "Zielordner (allg.)", "2001");
    QCOMPARE(Files().model()->rowCount(), 80);
    Activate(program_->window);
    Files().setFocus();
    QTest::keyClick(&Files(), Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(Files().model()->rowCount(), 100);
    program_->Press("save");
  }

  void AFindingLeadsToTheEntryThatIsMended() {
    std::filesystem::remove(work_.Path("neu/teil300.dat"));
    QTest::keyClick(&program_->window, Qt::Key_F5);
    QTRY_COMPARE(Shown(Panel(), "lblOutcome"), "Version 1.2.0: geprüft: 1 Fehler, 0 Warnungen");
    auto& findings = Child<QTreeWidget>(Panel(), "lsvFindings");
    DoubleClick(findings, findings.model()->index(0, 0));
    QVERIFY(Files().currentIndex().data().toString().endsWith("teil300.dat"));
    Edit(*script_, Page(), "Ausschließen", "1");
    Activate(program_->window);
    program_->Press("save");
    QTest::keyClick(&program_->window, Qt::Key_F5);
    QTRY_COMPARE(Shown(Panel(), "lblOutcome"), "Version 1.2.0: geprüft: Keine Beanstandungen");
  }

  void TheSetupIsBuiltAgainAndCompared() {
    program_->Click("v3");
    Build("neu-fertig");
    script_->ExpectAndPress("messageBox", "cmdYes");  // the old setup goes
    Activate(program_->window);
    QTest::keyClick(&program_->window, Qt::Key_F7);
    QCOMPARE(Shown(Panel(), "lblOutcome"), "Version 1.2.0: Setup erstellt");
    script_->ExpectChoosing("browseFolder", tools::ToQString(work_.Path("alt")));
    script_->Expect<QWidget>("textWindow", [](QWidget& window) {
      QCOMPARE(Shown(window, "txtText").count("\nneu: "), 499);
      Press(window, "cmdClose");
    });
    Press(Panel(), "cmdCompare");
  }

  void cleanupTestCase() {
    program_.reset();
    script_.reset();
  }

 private:
  /// Builds the selected version by the wizard, packaged, into a folder of `work_`.
  void Build(const char* folder) {
    const QString path = tools::ToQString(work_.Path(folder));
    script_->Expect<tools::WizardStructure>(
        "wizardStructure", [path](tools::WizardStructure& frame) {
          for (int i = 0; i < 2; ++i) Press(frame, "cmdNext");
          Type(Child(frame, "txtFolder"), path);
          Press(frame, "cmdNext");
          QTest::keyClick(&Child(frame, "chkMakeZip"), Qt::Key_Space);
          Press(frame, "cmdNext");
          Press(frame, "cmdFinish");
        });
    script_->ExpectAndPress("messageBox", "cmdOK");
    program_->Press("setupwiz");
  }

  QWidget& Panel() const { return Child(program_->window, "pnlResult"); }
  QWidget& Page() const { return Child(program_->window, "EditorTab1"); }
  QTreeView& Files() const { return Child<QTreeView>(program_->window, "lsvBrowser"); }

  TemporaryFolder work_;
  std::unique_ptr<ModalScript> script_;
  std::unique_ptr<OpenedProgram> program_;
};

}  // namespace tests

QTEST_MAIN(tests::EverydayTest)
#include "EverydayTest.moc"
