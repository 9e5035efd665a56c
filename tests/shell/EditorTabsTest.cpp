#include "tests/support/desktop/PageFixture.h"

namespace tests {

using tools::MessageAnswer;

/// The host of the pages, with the program's own pages.
class EditorTabsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void MakesHiddenCleanPagesAndTellsOfThoseThatCannotBeMadeOrRead() {
    PageFixture f;
    const char* equalIds = "[Files]\nCount=2\n[File1]\nID=a\n[File2]\nID=a\n";
    f.folder.Write(f.kComponentFile, equalIds);
    f.tabs.Prepare("tabRegistryEditor;missing;tabFileList;tabTesselRegistration", 1, 1);
    QCOMPARE(f.tabs.Item(2).objectName(), "EditorTab4");
    QVERIFY(f.tabs.Item(2).isHidden() && !f.tabs.Item(2).IsDirty());
    QVERIFY(!f.area.findChild<QWidget*>("EditorTab3"));
    QVERIFY(Told(f.dialogs).contains("Packwright.missing\nFehler|"));
    QCOMPARE(f.File(f.kComponentFile), equalIds);
  }

  void OffersEachChangedPageByItsTitleAndNoOther() {
    PageFixture f;
    f.tabs.Prepare("tabBuildOptions;tabTesselRegistration;tabFeatures", 1, 0);
    for (const int changed : {1, 2}) f.tabs.Item(changed).SetDirty(true);
    f.dialogs.ExpectQuestion("der Seite \"Erstellungs-Optionen\" übernehmen?", MessageAnswer::Yes);
    f.dialogs.ExpectQuestion("der Seite \"Tessel-Datenbank\" übernehmen?", MessageAnswer::No);
    f.tabs.Reset(true);
    QVERIFY(f.area.findChildren<QWidget*>().isEmpty());
    QVERIFY(f.File(f.kVersionFile).contains("\nActiveConfig=1\n"));
    QVERIFY(!f.File(f.kVersionFile).contains("[Tessel]"));
  }

  void AsksNothingWhenToldNotToAndDoesNotReportAFailureToApply() {
    for (const bool ask : {false, true}) {
      PageFixture f;
      f.tabs.Prepare("tabBuildOptions", 1, 0);
      f.tabs.Item(1).SetDirty(true);
      f.disk.FailAt(FaultyDisk::Step::Write, 1);
      if (ask) f.dialogs.ExpectQuestion("Erstellungs-Optionen", MessageAnswer::Yes);
      f.tabs.Reset(ask);
      QCOMPARE(f.tabs.Count(), 0);
      QCOMPARE(f.dialogs.Messages().size(), ask ? 1U : 0U);
      QCOMPARE(f.area.hourglasses, 0);
      QCOMPARE(f.File(f.kVersionFile), "[Components]\nCount=1\n");
    }
  }
};

}  // namespace tests

QTEST_MAIN(tests::EditorTabsTest)
#include "EditorTabsTest.moc"
