#include <filesystem>

#include "tests/support/desktop/PageFixture.h"
#include "tools/Error.h"

namespace tests {

/// A page that cannot tell whether it has changes.
struct BrokenPage : pages::EditorPage {
  using EditorPage::EditorPage;
  [[nodiscard]] std::string Title() const override { return "kaputt"; }
  void ReadSettings() override {}
  void WriteSettings() override {}
  [[nodiscard]] bool IsDirty() const override { throw tools::Error("kaputt"); }
};

/// The host of the pages, with the program's own pages.
class EditorTabsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TellsOfPagesThatCannotBeMadeOrRead() {
    PageFixture f;
    const char* equalIds = "[Files]\nCount=2\n[File1]\nID=a\n[File2]\nID=a\n";
    f.folder.Write(f.kComponentFile, equalIds);
    f.tabs.Prepare("tabRegistryEditor;missing;tabFileList;tabTesselRegistration", 1, 1);
    QCOMPARE(f.tabs.Item(2).objectName(), "EditorTab4");
    QVERIFY(!f.tabs.Item(2).IsDirty());
    QVERIFY(Told(f.dialogs).contains("Packwright.missing\nFehler|"));
    QCOMPARE(f.File(f.kComponentFile), equalIds);
  }

  void TellsOnceOfAFileThatCannotBeRead() {
    PageFixture f;
    std::filesystem::remove(f.folder.Path(f.kComponentFile));
    f.folder.MakeFolder(f.kComponentFile);
    f.tabs.Prepare("tabFileList;tabRegistryEditor", 1, 1);
    QCOMPARE(f.tabs.Count(), 0);
    QVERIFY(IsToldOneError(f.dialogs, f.Path(f.kComponentFile)));
  }

  void OffersOnlyChangedPages() {
    PageFixture f;
    f.tabs.Prepare("tabBuildOptions;tabTesselRegistration;tabFeatures", 1, 0);
    for (const int changed : {1, 2}) f.tabs.Item(changed).SetDirty(true);
    f.dialogs.ExpectQuestion({Text::ApplyPageChanges, "Erstellungs-Optionen"}, MessageAnswer::Yes);
    f.dialogs.ExpectQuestion({Text::ApplyPageChanges, "Tessel-Datenbank"}, MessageAnswer::No);
    f.tabs.Reset(true);
    QCOMPARE(f.dialogs.LastStyle(), "?Yes");
    QVERIFY(f.File(f.kVersionFile).contains("\nActiveConfig=1\n"));
    QVERIFY(!f.File(f.kVersionFile).contains("[Tessel]"));
  }

  void APageWhoseChangesAreUnknownStaysWithThoseBehindIt() {
    PageFixture f;
    f.pageRegistry.Add("broken",
                       [](const auto&, QWidget* parent) { return new BrokenPage(parent); });
    f.tabs.Prepare("tabFeatures;broken;tabSetupProcedure", 1, 0);
    f.tabs.Reset(true);
    QCOMPARE(f.tabs.Count(), 2);
    QCOMPARE(f.tabs.Item(1).Title(), "kaputt");
    f.tabs.ShowTab(2);
    QVERIFY(f.tabs.Item(1).isHidden());
    QVERIFY(!f.tabs.Item(2).isHidden());
    f.tabs.ShowTab(3);
    QVERIFY(f.tabs.Item(2).isHidden());
  }

  void AsksBeforeAPageOverwritesWhatAnotherProgramChanged() {
    PageFixture f;
    f.Open("tabProductDetails", 0, 0);
    Edit(*f.page, "Autor", "Änne");
    const std::string theirs = "[Product]\nTitle=Demo\nAuthor=Bert\n";
    f.folder.Write(f.kProductFile, theirs);
    f.dialogs.ExpectQuestion(Text::OverwriteOutsideChanges, MessageAnswer::No);
    QVERIFY_THROWS_EXCEPTION(tools::Error, f.page->ApplyChanges());
    QCOMPARE(f.dialogs.LastStyle(), "?No");
    QVERIFY(Told(f.dialogs).contains("die Seite \"Produkt\" sie gelesen hat:\n" +
                                     f.Path(f.kProductFile)));
    QCOMPARE(f.folder.Read(f.kProductFile), theirs);
    QVERIFY(f.page->IsDirty());
    QVERIFY(Rows(Grid(*f.page)).contains("Autor=Änne"));
    f.dialogs.ExpectQuestion(Text::OverwriteOutsideChanges, MessageAnswer::Yes);
    f.page->ApplyChanges();
    QVERIFY(f.File(f.kProductFile).contains("\nAuthor=Änne\n"));

    Edit(*f.page, "Autor", "Cem");
    f.folder.Write(f.kProductFile, theirs);
    f.dialogs.ExpectQuestion({Text::ApplyPageChanges, "Produkt"}, MessageAnswer::Yes);
    f.dialogs.ExpectQuestion(Text::OverwriteOutsideChanges, MessageAnswer::No);
    f.tabs.Reset(true);
    QVERIFY(f.tabs.TakeFailures().at(0).starts_with("Die Seite \"Produkt\" wurde nicht gespei"));
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
  }

  void AFailureToApplyIsLeftToTheWindowToReport() {
    for (const bool ask : {false, true}) {
      PageFixture f;
      f.tabs.Prepare("tabBuildOptions", 1, 0);
      f.tabs.Item(1).SetDirty(true);
      f.disk.FailAt(FaultyDisk::Step::Write, 1);
      if (ask) f.dialogs.ExpectQuestion(Text::ApplyPageChanges, MessageAnswer::Yes);
      f.tabs.Reset(ask);
      QCOMPARE(f.tabs.Count(), 0);
      QCOMPARE(f.dialogs.Messages().size(), ask ? 1U : 0U);
      QCOMPARE(f.tabs.TakeFailures().size(), ask ? 1U : 0U);
      QVERIFY(QGuiApplication::overrideCursor() == nullptr);
      QCOMPARE(f.File(f.kVersionFile), "[Components]\nCount=1\n");
    }
  }
};

}  // namespace tests

QTEST_MAIN(tests::EditorTabsTest)
#include "EditorTabsTest.moc"
