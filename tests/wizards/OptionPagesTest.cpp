#include <QCheckBox>

#include "tests/support/desktop/Widgets.h"
#include "tests/wizards/OpenSample.h"
#include "tools/desktop/QtText.h"
#include "wizards/OptionPages.h"

namespace tests {

namespace {

/// An option page for the sample's version, with these values of the wizard.
struct Fixture : OpenSample {
  Fixture(const char* name, const tools::WizardDataStore& values, const std::string& buildKeys = {})
      : OpenSample(buildKeys), store(values) {
    const std::string progId = std::string("PackwrightWizards.wizSetup_") + name;
    page.reset(wizards::OptionPages(project, 1, dialogs).Create(progId, store, nullptr));
    page->ShowValues();
    page->show();
  }

  QString Overview() const {
    return Shown(*page, {"txtOverviewProduct", "txtOverviewVersion", "txtOverviewConfiguration",
                         "txtOverviewLanguage", "txtOverviewFolder"});
  }
  /// The values of the store, joined by "|".
  QString Values(std::initializer_list<const char*> keys) {
    QStringList values;
    for (const char* key : keys) values += tools::ToQString(store[key]);
    return values.join('|');
  }

  tools::WizardDataStore store;
  std::unique_ptr<tools::WizardOptionPage> page;
};

}  // namespace

class OptionPagesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TheConfigurationProposesItsFolderAndLanguageUnlessTheAuthorSetOthers() {
    Fixture f("Config", {{"config", "1"}, {"folder", "aus/probe"}},
              "[Build1]\nOutputFolder=aus/probe\nLocale=1031\n"
              "[Build2]\nOutputFolder=aus/fertig\nLocale=2055\n");
    auto& configuration = Child(*f.page, "cmbConfiguration");
    QCOMPARE(Shown(*f.page, {"cmbConfiguration", "cmbLanguage"}), "Debug|");
    QTest::keyClick(&configuration, Qt::Key_Down);
    QCOMPARE(f.Values({"config", "folder", "language"}), "2|aus/fertig|2055");
    QCOMPARE(Shown(*f.page, "cmbLanguage"), "2055 – Deutsch (Schweiz)");

    f.store["folder"] = "eigener";
    QTest::keyClick(&configuration, Qt::Key_Up);
    QCOMPARE(f.Values({"folder", "language"}), "eigener|1031");
    Type(Child(*f.page, "cmbLanguage"), "1055");
    QTest::keyClick(&configuration, Qt::Key_Down);
    QCOMPARE(f.Values({"language"}), "1055");
  }

  void WithoutBuildKeysTheDefaultFoldersAreProposed() {
    Fixture f("Config", {{"config", "1"}});
    f.store["folder"] = f.project.DefaultOutputFolder(1);
    QTest::keyClick(&Child(*f.page, "cmbConfiguration"), Qt::Key_Down);
    QCOMPARE(f.Values({"folder", "language"}),
             tools::ToQString(f.project.DefaultOutputFolder(2)) + "|");
  }

  void ALanguageIsTypedAsNumberOrNameAndAnythingElseIsRefusedInPlace() {
    const std::vector<std::pair<QString, QString>> cases{{"9999", "9999"},
                                                         {"deutsch (ÖSTERREICH)", "3079"},
                                                         {"1033 - Englisch", "1033"},
                                                         {"", ""},
                                                         {"Klingonisch", ""},
                                                         {"99999999999", ""},
                                                         {"-1", ""}};
    for (const auto& [typed, number] : cases) {
      Fixture f("Config", {{"config", "1"}, {"language", "1031"}});
      QCOMPARE(Shown(*f.page, "cmbLanguage"), "1031 – Deutsch (Deutschland)");
      Type(Child(*f.page, "cmbLanguage"), typed);
      QCOMPARE(f.Values({"language"}), number);
      QCOMPARE(Child(*f.page, "lblLanguageNote").isVisible(), number.isEmpty() && !typed.isEmpty());
    }
  }

  void TheOutputPageShowsWhatWillBeBuiltAndWhere() {
    Fixture f("Output", {{"config", "2"}, {"language", "1031"}, {"folder", "aus"}});
    QCOMPARE(f.Overview(), "Demo|1.2.0|Release|1031 – Deutsch (Deutschland)|" +
                               tools::ToQString(f.folder.Path("aus")));
    f.store = {{"config", "7"}};
    f.page->ShowValues();
    QCOMPARE(f.Overview(), "Demo|1.2.0|n/v|n/v|n/v");
  }

  void TheOutputPageWarnsOfAFolderWithFilesAndOfOneThatWouldBeRefused() {
    Fixture f("Output", {{"folder", "leer"}});
    const std::string full = f.folder.MakeFolder("voll");
    f.folder.Write("voll/unter/datei.txt", "x");
    auto& warning = Child(*f.page, "lblFolderWarning");
    QVERIFY(!warning.isVisible());
    f.dialogs.ExpectBrowseFolder("Wählen Sie einen Ordner", full);
    Press(*f.page, "cmdBrowse");
    QCOMPARE(f.store["folder"], full);
    QVERIFY(warning.isVisible());
    QVERIFY(Shown(*f.page, "lblFolderWarning").startsWith("Im gewählten Ausgabeverzeichnis sind"));
    Type(Child(*f.page, "txtFolder"), ".");
    QCOMPARE(Shown(*f.page, "lblFolderWarning"), "Der Ausgabeordner ist ungültig.");
    QVERIFY(f.Overview().endsWith("|n/v"));
    QTest::keyClicks(&Child(*f.page, "txtFolder"), "/leer");
    QVERIFY(!warning.isVisible());
    f.dialogs.ExpectBrowseFolder("Wählen Sie einen Ordner", "");
    Press(*f.page, "cmdBrowse");
    QCOMPARE(f.Values({"folder"}), "./leer");
  }

  void PackagingOptionsStayEmptyUntilTheAuthorChooses() {
    Fixture f("Packaging", {{"makezip", ""}, {"includeexe", "1"}});
    QVERIFY(!Child<QCheckBox>(*f.page, "chkMakeZip").isChecked());
    QVERIFY(Child<QCheckBox>(*f.page, "chkIncludeExe").isChecked());
    QTest::keyClick(&Child(*f.page, "chkIncludeExe"), Qt::Key_Space);
    QCOMPARE(f.Values({"makezip", "includeexe"}), "|0");
    QTest::mouseClick(&Child(*f.page, "chkMakeZip"), Qt::LeftButton, {}, QPoint(8, 8));
    QCOMPARE(f.Values({"makezip", "includeexe"}), "1|0");
    QCOMPARE(f.store.count("includetessel"), 0U);
  }
};

}  // namespace tests

QTEST_MAIN(tests::OptionPagesTest)
#include "OptionPagesTest.moc"
