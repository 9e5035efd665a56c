#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "tests/support/desktop/Widgets.h"
#include "tests/wizards/OpenSample.h"
#include "tools/desktop/QtText.h"
#include "wizards/OptionPages.h"

namespace tests {

using tools::WizardOptionPage;

namespace {

constexpr const char* kTwoConfigurations =
    "[Build1]\nOutputFolder=aus/probe\nLocale=1031\n[Build2]\nOutputFolder=aus/fertig\n"
    "Locale=2055\n";

}  // namespace

class OptionPagesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TheConfigurationProposesItsFolderAndLanguageUnlessTheAuthorSetOthers() {
    OpenSample sample(kTwoConfigurations);
    store_ = {{"config", "1"}, {"folder", "aus/probe"}};
    const auto page = Show(sample, "wizSetup_Config");
    auto& configuration = Child<QComboBox>(*page, "cmbConfiguration");
    auto& language = Child<QComboBox>(*page, "cmbLanguage");
    QCOMPARE(configuration.currentText(), "Debug");
    QCOMPARE(language.currentText(), "");
    QVERIFY(store_["language"].empty());

    QTest::keyClick(&configuration, Qt::Key_Down);
    QCOMPARE(store_["config"], "2");
    QCOMPARE(store_["folder"], "aus/fertig");
    QCOMPARE(store_["language"], "2055");
    QCOMPARE(language.currentText(), "2055 – Deutsch (Schweiz)");

    store_["folder"] = "eigener";
    QTest::keyClick(&configuration, Qt::Key_Up);
    QCOMPARE(store_["folder"], "eigener");
    QCOMPARE(store_["language"], "1031");
    language.lineEdit()->selectAll();
    QTest::keyClicks(language.lineEdit(), "1055");
    QTest::keyClick(&configuration, Qt::Key_Down);
    QCOMPARE(store_["language"], "1055");
  }

  void WithoutBuildKeysTheDefaultFoldersAreProposed() {
    OpenSample sample;
    store_ = {{"config", "1"}, {"folder", sample.project.DefaultOutputFolder(1)}};
    const auto page = Show(sample, "wizSetup_Config");
    QTest::keyClick(&Child(*page, "cmbConfiguration"), Qt::Key_Down);
    QCOMPARE(store_["folder"], sample.project.DefaultOutputFolder(2));
    QCOMPARE(store_["language"], "");
  }

  void ALanguageIsTypedAsNumberOrNameAndAnythingElseIsRefusedInPlace_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<std::string>("number");
    QTest::newRow("number") << "9999" << std::string("9999");
    QTest::newRow("name") << "deutsch (ÖSTERREICH)" << std::string("3079");
    QTest::newRow("number and name") << "1033 - Englisch" << std::string("1033");
    QTest::newRow("nothing") << "" << std::string();
    QTest::newRow("word") << "Klingonisch" << std::string();
    QTest::newRow("too large") << "99999999999" << std::string();
    QTest::newRow("negative") << "-1" << std::string();
  }

  void ALanguageIsTypedAsNumberOrNameAndAnythingElseIsRefusedInPlace() {
    QFETCH(QString, typed);
    QFETCH(std::string, number);
    OpenSample sample;
    store_ = {{"config", "1"}, {"language", "1031"}};
    const auto page = Show(sample, "wizSetup_Config");
    auto& language = Child<QComboBox>(*page, "cmbLanguage");
    QCOMPARE(language.currentText(), "1031 – Deutsch (Deutschland)");
    QTest::keyClick(language.lineEdit(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(language.lineEdit(), Qt::Key_Delete);
    QTest::keyClicks(language.lineEdit(), typed);
    QCOMPARE(store_["language"], number);
    QCOMPARE(Child(*page, "lblLanguageNote").isVisible(), number.empty() && !typed.isEmpty());
  }

  void TheOutputPageShowsWhatWillBeBuiltAndWhere() {
    OpenSample sample;
    store_ = {{"config", "2"}, {"language", "1031"}, {"folder", "aus"}};
    const auto page = Show(sample, "wizSetup_Output");
    QCOMPARE(Overview(*page, "Product"), "Demo");
    QCOMPARE(Overview(*page, "Version"), "1.2.0");
    QCOMPARE(Overview(*page, "Configuration"), "Release");
    QCOMPARE(Overview(*page, "Language"), "1031 – Deutsch (Deutschland)");
    QCOMPARE(Overview(*page, "Folder"), tools::ToQString(sample.folder.Path("aus")));

    store_ = {{"config", "7"}};
    page->ShowValues();
    for (const char* name : {"Configuration", "Language", "Folder"}) {
      QCOMPARE(Overview(*page, name), "n/v");
    }
  }

  void TheOutputPageWarnsOfAFolderWithFilesAndOfOneThatWouldBeRefused() {
    OpenSample sample;
    sample.folder.Write("voll/unter/datei.txt", "x");
    sample.folder.MakeFolder("leer/unter");
    store_ = {{"folder", "leer"}};
    const auto page = Show(sample, "wizSetup_Output");
    auto& warning = Child<QLabel>(*page, "lblFolderWarning");
    QVERIFY(!warning.isVisible());

    sample.dialogs.ExpectBrowseFolder("Wählen Sie einen Ordner", sample.folder.Path("voll"));
    QTest::mouseClick(&Child(*page, "cmdBrowse"), Qt::LeftButton);
    QCOMPARE(store_["folder"], sample.folder.Path("voll"));
    QVERIFY(warning.isVisible());
    QVERIFY(warning.text().startsWith("Im gewählten Ausgabeverzeichnis sind bereits Dateien"));

    auto& folder = Child<QLineEdit>(*page, "txtFolder");
    folder.selectAll();
    QTest::keyClicks(&folder, ".");
    QCOMPARE(warning.text(), "Der Ausgabeordner ist ungültig.");
    QCOMPARE(Overview(*page, "Folder"), "n/v");
    QTest::keyClicks(&folder, "/neu");
    QCOMPARE(store_["folder"], "./neu");
    QVERIFY(!warning.isVisible());

    sample.dialogs.ExpectBrowseFolder("Wählen Sie einen Ordner", "");
    QTest::mouseClick(&Child(*page, "cmdBrowse"), Qt::LeftButton);
    QCOMPARE(store_["folder"], "./neu");
  }

  void PackagingOptionsStayEmptyUntilTheAuthorChooses() {
    OpenSample sample;
    store_ = {{"makezip", ""}, {"includeexe", "1"}};
    const auto page = Show(sample, "wizSetup_Packaging");
    QVERIFY(!Child<QCheckBox>(*page, "chkMakeZip").isChecked());
    QVERIFY(Child<QCheckBox>(*page, "chkIncludeExe").isChecked());
    QCOMPARE(store_["makezip"], "");
    QTest::mouseClick(&Child(*page, "chkMakeZip"), Qt::LeftButton, {}, QPoint(8, 8));
    QTest::keyClick(&Child(*page, "chkIncludeExe"), Qt::Key_Space);
    QCOMPARE(store_["makezip"], "1");
    QCOMPARE(store_["includeexe"], "0");
    QCOMPARE(store_.count("includetessel"), 0U);
  }

 private:
  std::unique_ptr<WizardOptionPage> Show(OpenSample& sample, const std::string& name) {
    const tools::WizardPageRegistry pages = wizards::OptionPages(sample.project, 1, sample.dialogs);
    std::unique_ptr<WizardOptionPage> page(
        pages.Create("PackwrightWizards." + name, store_, nullptr));
    page->ShowValues();
    page->show();
    return page;
  }

  static QString Overview(const QWidget& page, const char* row) {
    return Child<QLineEdit>(page, ("txtOverview" + std::string(row)).c_str()).text();
  }

  tools::WizardDataStore store_;
};

}  // namespace tests

QTEST_MAIN(tests::OptionPagesTest)
#include "OptionPagesTest.moc"
