#include <QTest>

#include "tests/support/TemporaryFolder.h"
#include "tools/desktop/FileChoice.h"
#include "tools/desktop/QtText.h"

namespace tests {

class FileChoiceTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void FiltersArePairsOfTextAndPatterns_data() {
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("text that shows its pattern")
        << "Produkte (*.product)|*.product" << QStringList{"Produkte (*.product) (*.product)"};
    QTest::newRow("several patterns, several pairs")
        << "Bilder|*.png; *.jpg|Alle|*.*" << QStringList{"Bilder (*.png *.jpg)", "Alle (*)"};
    QTest::newRow("files without an extension") << "*.*|*.*" << QStringList{"*.* (*)"};
    QTest::newRow("half a pair") << "Produkte" << QStringList{"*.* (*)"};
    QTest::newRow("nothing") << "" << QStringList{"*.* (*)"};
  }

  void FiltersArePairsOfTextAndPatterns() {
    QFETCH(QString, filter);
    QTEST(tools::NameFilters(filter), "expected");
  }

  void AMissingFolderGivesTheNearestOneAboveIt() {
    const TemporaryFolder folder;
    const QString existing = tools::ToQString(folder.MakeFolder("Über")).replace('\\', '/');
    QCOMPARE(tools::NearestFolder(existing), existing);
    QCOMPARE(tools::NearestFolder(existing + "/Installationen/Demo/"), existing);
    QCOMPARE(tools::NearestFolder("/keiner da"), "/");
    QCOMPARE(tools::NearestFolder(""), "");
    QCOMPARE(tools::NearestFolder("nicht da/auch nicht"), "");
  }
};

}  // namespace tests

QTEST_APPLESS_MAIN(tests::FileChoiceTest)
#include "FileChoiceTest.moc"
