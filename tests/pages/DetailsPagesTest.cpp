#include "tests/support/desktop/PageFixture.h"
#include "tools/Text.h"

namespace tests {

/// The page tabTesselRegistration of a version with these settings, on a machine with a
/// catalogue.
struct TesselPage : PageFixture {
  explicit TesselPage(const std::string& settings) {
    MakeMachineKey("Software\\Quillon\\Tessel\\AppTypes\\2", {"Lesen", "Malen"});
    folder.Write(kVersionFile, settings);
    Open("tabTesselRegistration", 1, 0);
  }
};

/// The page of a product, those of a version that show, or will show, but change nothing, and the
/// one with its catalogue data.
class DetailsPagesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TheProductsRowsAreStoredButForTheGuid() {
    PageFixture f;
    f.folder.Write(f.kProductFile, "[Product]\nTitle=Demo\nAuthorHomepage=h\nProductGUID={1}\n");
    f.Open("tabProductDetails", 0, 0);
    QCOMPARE(Rows(Grid(*f.page)),
             "Produktbezeichnung=Demo|Produktkennung (GUID)=|Autor=|Website der Firma=h");
    Edit(*f.page, "Produktkennung (GUID)", "{2}");
    QVERIFY(f.page->IsDirty());
    Edit(*f.page, "Autor", "Änne");
    f.page->ApplyChanges();
    QVERIFY(!f.page->IsDirty());
    QCOMPARE(f.File(f.kProductFile),
             "[Product]\nTitle=Demo\nAuthorHomepage=h\nProductGUID={1}\nAuthor=Änne\n");
  }

  void ThePagesOfAVersionChangeNothing() {
    PageFixture f;
    f.project.WriteProductSetting("Versions", "Ver1", "2.30.x");
    const QStringList before{f.File(f.kProductFile), f.File(f.kVersionFile)};
    for (const char* name : {"tabFeatures", "tabSetupProcedure", "tabVersionDetails"}) {
      f.Open(name, 1, 0);
      f.page->ApplyChanges();
    }
    QCOMPARE(Shown(*f.page, {"txtVersionMaj", "txtVersionMin", "txtVersionRev"}), "2|30|0");
    QCOMPARE(QStringList({f.File(f.kProductFile), f.File(f.kVersionFile)}), before);
  }

  void KeysEditTheFirstRowOnceAfterTab() {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2}) {
      PageFixture f;
      f.Open("tabProductDetails", 0, 0);
      QAbstractItemView& list = Grid(*f.page);
      f.area.setFocus();
      list.setFocus(Qt::TabFocusReason);
      ModalScript script;
      script.Expect<QWidget>("frmEditProperty", [&](QWidget& dialog) {
        QTest::keyClick(&list, key);  // came before the dialog had the keyboard
        QVERIFY(Shown(dialog, "lblPrompt").contains("\"Produktbezeichnung\""));
        Press(dialog, "cmdCancel");
      });
      for (int i = 0; i < 2; ++i) QTest::keyClick(&list, key);
      QTest::qWait(20);  // the dialog has come and gone; another one would have come
    }
  }

  void CatalogueDataHaveDefaults() {
    const std::pair<const char*, const char*> rows[] = {
        {"", "?|?|1|"},
        {"[Component]\nTitle=My Tool Ä 2\n", "mytoolä2|My Tool Ä 2|1|"},
        {"[Tessel]\nKey=k\nTitle=t\nType=7\n", "k|t||"}};
    for (const auto& [settings, shown] : rows) {
      const TesselPage f(settings);
      QCOMPARE(Shown(*f.page,
                     {"txtTesselKey", "txtProgramTitle", "cmbProgramType", "cmbProgramSubtype"}),
               shown);
    }
  }

  void ChangedCatalogueDataAreStored() {
    TesselPage f("[Tessel]\nKey=k\nTitle=t\nType=1\nSubType=s\n");
    for (const char* name : {"txtTesselKey", "txtProgramTitle", "cmbProgramSubtype"}) {
      f.page->SetDirty(false);
      QTest::keyClicks(&Child(*f.page, name), "X");
      QVERIFY2(f.page->IsDirty(), name);
    }
    f.page->SetDirty(false);
    for (const auto& [key, subtypes] :
         {std::pair(Qt::Key_Down, 2), {Qt::Key_Down, 0}, {Qt::Key_Up, 2}}) {
      QTest::keyClick(&Child(*f.page, "cmbProgramType"), key);
      QCOMPARE(Child<QComboBox>(*f.page, "cmbProgramSubtype").count(), subtypes);
    }
    QVERIFY(f.page->IsDirty());
    f.page->ApplyChanges();
    QVERIFY(!f.page->IsDirty());
    QCOMPARE(f.File(f.kVersionFile), "[Tessel]\nKey=kX\nTitle=tX\nType=2\nSubType=sX\n");
  }

  void AChosenSubtypeLeavesThePageUnchanged() {
    TesselPage f("[Tessel]\nType=2\n");
    for (int i = 0; i < 2; ++i) QTest::keyClick(&Child(*f.page, "cmbProgramSubtype"), Qt::Key_Down);
    QVERIFY(!f.page->IsDirty());
    f.disk.FailAt(FaultyDisk::Step::Write, 1);
    QVERIFY_THROWS_EXCEPTION(tools::Error, f.page->ApplyChanges());
    QVERIFY2(f.page->IsUnsaved(), "it could not be saved");
    f.disk.FailAt(FaultyDisk::Step::Write, 0);
    f.page->ApplyChanges();
    QVERIFY(f.File(f.kVersionFile).endsWith("SubType=Malen\n"));
  }

  void BytesThatAreNotUtf8SurviveASave() {
    const std::string stored = "[Tessel]\nKey=\xFF\nTitle=\xEF\xBB\xBFt\nType=1\nSubType=\xC3\n";
    TesselPage f(stored);
    Type(Child(*f.page, "txtTesselKey"), "k");
    f.page->ApplyChanges();
    QCOMPARE(f.folder.Read(f.kVersionFile), tools::ReplaceAll(stored, "\xFF", "k"));
  }

  void AStoredProgramTypeThatIsNoneIsSavedAsZero() {
    for (const char* type : {"0", "7", "-3", "99999999999", "viele"}) {
      TesselPage f(std::string("[Tessel]\nType=") + type + "\n");
      f.page->ApplyChanges();
      QVERIFY2(f.File(f.kVersionFile).contains("\nType=0\n"), type);
    }
  }
};

}  // namespace tests

QTEST_MAIN(tests::DetailsPagesTest)
#include "DetailsPagesTest.moc"
