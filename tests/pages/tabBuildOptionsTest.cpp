#include "tests/support/desktop/PageFixture.h"

namespace tests {

/// The page of a version with these settings.
struct Fixture : PageFixture {
  explicit Fixture(const char* settings) {
    folder.Write(kVersionFile, settings);
    Open("tabBuildOptions", 1, 0);
  }

  void ChooseNext() { QTest::keyClick(&Child(*page, "cmbConfiguration"), Qt::Key_Down); }
  QString Shown() const {
    return tests::Shown(*page, {"cmbInstallerType", "txtInstallerTypeDesc", "cmbConfiguration"}) +
           "|" + Rows(Grid(*page));
  }
};

class tabBuildOptionsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void StoredNumbersThatNameNothingSelectNothing() {
    const char* stored = "[BuildCommon]\nInstallerType=2\nActiveConfig=99999999999\n";
    Fixture f(stored);
    QCOMPARE(f.Shown(),
             "|||Konfiguration=|Ausgabeordner=" + f.Path("Produkt/Ausgabe/") + "|Sprache (LCID)=0");
    for (const char* row : {"Konfiguration", "Ausgabeordner", "Sprache (LCID)"}) {
      f.RefuseToEdit(row);
    }
    f.page->ApplyChanges();
    QCOMPARE(f.File(f.kVersionFile), stored);
    QTest::keyClick(&Child(*f.page, "cmbInstallerType"), Qt::Key_Down);
    QVERIFY(f.page->IsDirty());
    f.page->ApplyChanges();
    QCOMPARE(f.File(f.kVersionFile), "[BuildCommon]\nInstallerType=1\nActiveConfig=99999999999\n");
  }

  void AnotherConfigurationIsStoredAtOnce() {
    Fixture f("[Build1]\nOutputFolder=d\nLocale=1\n[Build2]\nOutputFolder=out;2\nLocale=2\n");
    const QString release = f.File(f.kVersionFile) + "\n[BuildCommon]\nActiveConfig=2\n";
    f.ChooseNext();
    QCOMPARE(f.File(f.kVersionFile), release);
    QVERIFY(!f.page->IsDirty());
    QVERIFY(
        f.Shown().endsWith("|Release|Konfiguration=Release|Ausgabeordner=out;2|"
                           "Sprache (LCID)=2"));
    f.page->ApplyChanges();
    QCOMPARE(f.File(f.kVersionFile), release + "InstallerType=1\n");
  }

  void AChoiceIsComparedWithTheConfigurationInTheGrid() {
    Fixture f("[Build2]\nOutputFolder=r\n");
    f.folder.Write(f.kVersionFile, "[BuildCommon]\nActiveConfig=2\n");  // by another program
    f.ChooseNext();
    QVERIFY(f.Shown().contains("|Release|Konfiguration=Release|"));
  }

  void ARefusedOrFailedSaveKeepsTheConfiguration() {
    Fixture f("");
    Edit(*f.page, "Sprache (LCID)", "1033");
    const QString edited = f.Shown();
    Q_EMIT Child<QComboBox>(*f.page, "cmbConfiguration").activated(0);  // it is chosen already
    f.disk.FailAt(FaultyDisk::Step::Write, 1);
    for (const MessageAnswer answer : {MessageAnswer::No, MessageAnswer::Yes}) {
      f.dialogs.ExpectQuestion(Text::SaveBeforeConfigurationChange, answer);
      f.ChooseNext();
      QCOMPARE(f.Shown(), edited);
      QVERIFY(f.page->IsDirty());
      QCOMPARE(f.File(f.kVersionFile), "");
    }
    QCOMPARE(f.dialogs.Messages().size(), 3U);  // the error among them

    f.disk.FailAt(FaultyDisk::Step::Write, 0);
    f.page->SetDirty(false);  // by the command that saves all pages: it failed too
    f.dialogs.ExpectQuestion(Text::SaveBeforeConfigurationChange, MessageAnswer::Yes);
    f.ChooseNext();
    QCOMPARE(f.dialogs.LastStyle(), "?Yes");
    QVERIFY(!f.page->IsDirty());
    QVERIFY(f.Shown().contains("|Release|Konfiguration=Release|"));
    QCOMPARE(f.File(f.kVersionFile),
             "[BuildCommon]\nInstallerType=1\nActiveConfig=2\n\n"
             "[Build1]\nOutputFolder=" +
                 f.Path("Produkt/Ausgabe/Debug") + "\nLocale=1033\n");
  }
};

}  // namespace tests

QTEST_MAIN(tests::tabBuildOptionsTest)
#include "tabBuildOptionsTest.moc"
