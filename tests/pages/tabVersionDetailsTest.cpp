#include <QGroupBox>
#include <QLabel>
#include <QTest>

#include "grid/ctlPropertyEditor.h"
#include "pages/tabFeatures.h"
#include "pages/tabSetupProcedure.h"
#include "pages/tabVersionDetails.h"
#include "tests/pages/PageFixture.h"

namespace tests {

/// The pages of a version that show, or will show, but change nothing.
class tabVersionDetailsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ShowsTheVersionInItsParts() {
    PageFixture fixture;
    fixture.project.WriteProductSetting("Versions", "Ver1", "2.30.x");
    const auto page = fixture.Open<pages::tabVersionDetails>(0);
    QCOMPARE(page->Title(), "Version");
    QCOMPARE(Child<QLabel>(*page, "lblVersionMaj").text(), "Haupt:");
    QCOMPARE(Child<QLabel>(*page, "lblVersionMin").text(), "Neben:");
    QCOMPARE(Child<QLabel>(*page, "lblVersionRev").text(), "Revision:");
    QCOMPARE(Child<QLineEdit>(*page, "txtVersionMaj").text(), "2");
    QCOMPARE(Child<QLineEdit>(*page, "txtVersionMin").text(), "30");
    QCOMPARE(Child<QLineEdit>(*page, "txtVersionRev").text(), "0");
    QCOMPARE(Child<QGroupBox>(*page, "fraProperties").title(), "Weitere Eigenschaften");
    QCOMPARE(Child<grid::ctlPropertyEditor>(*page, "propsVersion").ListPropertyNames(), "");
  }

  void TypingAndApplyingChangesNothing() {
    PageFixture fixture;
    const std::string before = fixture.folder.Read("Demo/demo.product");
    const auto page = fixture.Open<pages::tabVersionDetails>(0);
    QTest::keyClicks(&Child(*page, "txtVersionMaj"), "9x");
    QVERIFY(!page->IsDirty());
    page->ApplyChanges();
    QCOMPARE(fixture.folder.Read("Demo/demo.product"), before);
    QCOMPARE(fixture.folder.Read(PageFixture::kVersionFile), "[Components]\nCount=1\n");
  }

  void ThePagesWithoutContentHaveATitleAndChangeNothing() {
    PageFixture fixture;
    const auto features = fixture.Open<pages::tabFeatures>(0);
    QCOMPARE(features->Title(), "Setup-Typen");
    const auto procedure = fixture.Open<pages::tabSetupProcedure>(0);
    QCOMPARE(procedure->Title(), "Installationsablauf");
    features->ApplyChanges();
    procedure->ApplyChanges();
    QVERIFY(!features->IsDirty() && !procedure->IsDirty());
    QCOMPARE(fixture.folder.Read(PageFixture::kVersionFile), "[Components]\nCount=1\n");
  }
};

}  // namespace tests

QTEST_MAIN(tests::tabVersionDetailsTest)
#include "tabVersionDetailsTest.moc"
