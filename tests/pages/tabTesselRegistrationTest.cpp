#include <QComboBox>

#include "tests/support/desktop/PageFixture.h"

namespace tests {

namespace {

constexpr std::initializer_list<const char*> kFields{"txtTesselKey", "txtProgramTitle",
                                                     "cmbProgramType", "cmbProgramSubtype"};

/// The page of a version with these settings, on a machine with a catalogue.
struct Fixture : PageFixture {
  explicit Fixture(const std::string& settings) {
    folder.Write(".wine/system.reg",
                 "WINE REGISTRY Version 2\n\n"
                 "[Software\\\\Quillon\\\\Tessel\\\\AppTypes\\\\2] 1\n"
                 "\"Malen\"=\"\"\n\"B\\x00fccher\"=\"\"\n");
    folder.Write(kVersionFile, settings);
    Open("tabTesselRegistration", 1, 0);
  }
};

}  // namespace

class tabTesselRegistrationTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void AbsentSettingsHaveDefaults() {
    const Fixture empty("");
    QCOMPARE(Shown(*empty.page, kFields), "?|?|1|");
    QCOMPARE(Child<QComboBox>(*empty.page, "cmbProgramType").count(), 6);
    const Fixture titled("[Component]\nTitle=My Tool Ä 2\n");
    QCOMPARE(Shown(*titled.page, kFields), "mytoolä2|My Tool Ä 2|1|");
  }

  void WhatIsTypedAndChosenIsStored() {
    Fixture f("[Tessel]\nKey=k\nTitle=t\nType=1\nSubType=s\n");
    for (const char* name : {"txtTesselKey", "txtProgramTitle", "cmbProgramSubtype"}) {
      f.page->SetDirty(false);
      QTest::keyClicks(&Child(*f.page, name), "X");
      QVERIFY2(f.page->IsDirty(), name);
    }
    f.page->SetDirty(false);
    QTest::keyClick(&Child(*f.page, "cmbProgramType"), Qt::Key_Down);
    QVERIFY(f.page->IsDirty());
    f.page->ApplyChanges();
    QVERIFY(!f.page->IsDirty());
    QCOMPARE(f.File(f.kVersionFile), "[Tessel]\nKey=kX\nTitle=tX\nType=2\nSubType=sX\n");

    for (const char* subtype : {"Malen", "Bücher"}) {
      QTest::keyClick(&Child(*f.page, "cmbProgramSubtype"), Qt::Key_Down);
      QCOMPARE(Shown(*f.page, "cmbProgramSubtype"), subtype);
      QVERIFY(!f.page->IsDirty());
    }
    f.page->ApplyChanges();
    QVERIFY(f.File(f.kVersionFile).endsWith("SubType=Bücher\n"));
  }

  void AStoredTypeThatIsNoneSelectsNone() {
    for (const char* type : {"0", "7", "-3", "99999999999", "viele"}) {
      Fixture f(std::string("[Tessel]\nType=") + type + "\n");
      QCOMPARE(Shown(*f.page, "cmbProgramType"), "");
      f.page->ApplyChanges();
      QVERIFY2(f.File(f.kVersionFile).contains("\nType=0\n"), type);
    }
  }

  void HintsGoToTheStatusBar() {
    const Fixture f("");
    const std::vector<std::pair<const char*, const char*>> hints{
        {"txtTesselKey", "Schlüssel, der die Komponente"},
        {"txtProgramTitle", "Titel, der in der Datenbank eingetragen werden soll"},
        {"cmbProgramType", "Kategorie, in die das Programm eingeordnet wird"},
        {"cmbProgramSubtype", "Unterkategorie (optional)"}};
    for (const auto& [name, hint] : hints) {
      QTest::mouseMove(&Child(*f.page, name));
      if (name[0] == 'c') Child(*f.page, name).setFocus();
      QVERIFY2(f.area.hint.startsWith(hint), qUtf8Printable(f.area.hint));
    }
    QTest::mouseMove(f.page, f.page->rect().bottomRight() - QPoint(5, 5));
    QCOMPARE(f.area.hint, "");
  }
};

}  // namespace tests

QTEST_MAIN(tests::tabTesselRegistrationTest)
#include "tabTesselRegistrationTest.moc"
