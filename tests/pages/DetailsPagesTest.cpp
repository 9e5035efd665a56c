#include "tests/support/desktop/PageFixture.h"

namespace tests {

/// The page of a product, and those of a version that show, or will show, but change nothing.
class DetailsPagesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TheProductsRowsAreShownAndStoredButForTheGuid() {
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

  void ThePagesOfAVersionShowItsNumberAndTheirTitlesAndChangeNothing() {
    PageFixture f;
    f.project.WriteProductSetting("Versions", "Ver1", "2.30.x");
    const QString before = f.File(f.kProductFile) + f.File(f.kVersionFile);
    QStringList titles;
    for (const char* name : {"tabFeatures", "tabSetupProcedure", "tabVersionDetails"}) {
      f.Open(name, 1, 0);
      titles += tools::ToQString(f.page->Title());
      f.page->ApplyChanges();
    }
    QCOMPARE(titles.join('|'), "Setup-Typen|Installationsablauf|Version");
    QCOMPARE(Shown(*f.page, {"lblVersionMaj", "txtVersionMaj", "lblVersionMin", "txtVersionMin",
                             "lblVersionRev", "txtVersionRev", "fraProperties"}),
             "Haupt:|2|Neben:|30|Revision:|0|Weitere Eigenschaften");
    QCOMPARE(Rows(Grid(*f.page)), "");
    QTest::keyClicks(&Child(*f.page, "txtVersionMaj"), "9x");
    QVERIFY(!f.page->IsDirty());
    f.page->ApplyChanges();
    QCOMPARE(f.File(f.kProductFile) + f.File(f.kVersionFile), before);
  }
};

}  // namespace tests

QTEST_MAIN(tests::DetailsPagesTest)
#include "DetailsPagesTest.moc"
