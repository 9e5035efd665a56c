#include <QLabel>
#include <QTreeWidget>

#include "tests/support/ProductDesk.h"
#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/UserHome.h"
#include "wizards/LastBuilds.h"
#include "wizards/OptionPages.h"
#include "wizards/WizardLauncher.h"

namespace tests {

using tools::WizardStructure;

/// The values of a wizard: each as "name=value", joined by "|".
QString Values(const tools::WizardDataStore& store) {
  QStringList values;
  for (const auto& [name, value] : store) values += ToQString(name + "=" + value);
  return values.join('|');
}

/// A product with a component of the file "hallo.txt"; `buildKeys` are sections of the version.
struct Sample : ProductDesk {
  explicit Sample(const std::string& buildKeys = {}) {
    folder.Write(product.kVersionFile, buildKeys);
    product.AddComponent("Kern", {product.File(folder.Write("quelle/hallo.txt", "Hallo"))});
  }

  void StartSetup(const std::function<void(WizardStructure&)>& act) {
    ModalScript script;
    script.Expect<WizardStructure>("wizardStructure", act);
    wizards::WizardLauncher(services).StartSetupWizard(1, window);
  }
  QString DefaultFolder(std::int32_t configuration) const {
    return ToQString(project.DefaultOutputFolder(configuration));
  }

  wizards::UnsavedPages unsaved{window, operations};
  std::unique_ptr<tools::Registry> registry = RegistryBelow(folder, disk);
  wizards::LastBuilds lastBuilds{*registry, project};
  wizards::BuildServices services{
      project, operations, dialogs, clock, disk, lastBuilds, folder.Path("programm")};
  findings::ChosenPlace chosen;
};

/// An option page for the sample's version, with these values of the wizard.
struct OptionPage : Sample {
  OptionPage(const char* name, const tools::WizardDataStore& values,
             const std::string& buildKeys = {})
      : Sample(buildKeys), store(values) {
    const std::string progId = std::string("PackwrightWizards.wizSetup_") + name;
    page.reset(wizards::OptionPages(services, 1, unsaved, chosen).Create(progId, store, nullptr));
    page->ShowValues();
    page->show();
  }

  tools::WizardDataStore store;
  std::unique_ptr<tools::WizardOptionPage> page;
};

class WizardsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TheSetupWizardStartsWithWhatIsStored() {
    Sample sample;
    sample.StartSetup([&sample](WizardStructure& frame) {
      QCOMPARE(Values(frame.DataStore()), "config=1|folder=" + sample.DefaultFolder(1) +
                                              "|includeexe=|includetessel=|installertype=1|"
                                              "language=|makezip=");
      QTest::keyClick(&frame, Qt::Key_Escape);
    });
    QCOMPARE(Told(sample.dialogs), "");
  }

  void TheClosingMessageFollowsEveryBuild() {
    Sample sample("[BuildCommon]\nActiveConfig=2\n[Build2]\nOutputFolder=voll\nLocale=1031\n");
    sample.folder.Write("Produkt/voll/alt.txt", "alt");
    const auto finish = [](WizardStructure& frame) {
      while (Child(frame, "cmdNext").isEnabled()) Press(frame, "cmdNext");
      Press(frame, "cmdFinish");
    };
    const QString end = "Setup-Erstellungs-Assistent|Das Setup wurde erstellt.";
    for (const auto answer : {MessageAnswer::No, MessageAnswer::Yes}) {
      sample.dialogs.ExpectQuestion(Text::OutputFolderHoldsFiles, answer);
      sample.StartSetup(finish);
      QVERIFY(Told(sample.dialogs).endsWith("\n" + end));
      QCOMPARE(sample.dialogs.LastStyle(), "iOk");
      QCOMPARE(sample.folder.Holds("Produkt/voll/Probe.install"), answer == MessageAnswer::Yes);
    }
    sample.project.SetProductTitle("De/mo");
    sample.StartSetup(finish);
    QVERIFY(Told(sample.dialogs).contains("\n" + end + "\nFehler|"));
    QVERIFY(Told(sample.dialogs).endsWith("\n" + end));
  }

  void TheUpdateWizardLeadsToAnEmptyPage() {
    Sample sample;
    ModalScript script;
    script.Expect<WizardStructure>("wizardStructure", [](WizardStructure& frame) {
      for (const char* button : {"cmdNext", "cmdNext", "cmdBack", "cmdNext"}) Press(frame, button);
      QCOMPARE(frame.CurrentPage(), "...");
      QVERIFY(frame.findChildren<tools::WizardOptionPage*>().isEmpty());
      Press(frame, "cmdCancel");
    });
    wizards::WizardLauncher(sample.services).StartUpdateWizard(1, sample.window);
    QCOMPARE(Told(sample.dialogs), "");
  }

  void ThePagesOfTheSetupWizardHaveTheirTexts() {
    const Sample sample;
    QStringList pages;
    for (const char* key : {"intro", "configuration", "output", "packaging", "ready", "..."}) {
      const tools::WizardPage page = wizards::SetupWizard(sample.services, 1, {}).ShowPage(key);
      QStringList words;
      for (const QString& line : ToQString(page.PageDescription).split("\r\n")) {
        words += line.section(' ', 0, 3);
      }
      pages += QString("%1 %2: %3 > ")
                   .arg(page.PageStyle)
                   .arg(ToQString(page.PageTitle), words.join('/')) +
               ToQString(page.ForwardStep);
    }
    QCOMPARE(pages.join('\n'),
             "1 Willkommen: Mit diesem Assistenten können/Einige der Optionen, die//"
             "Klicken Sie auf \"Weiter\", > configuration\n"
             "2 Konfiguration wählen: Legen Sie die zu > output\n"
             "2 Ausgabe-Optionen: Geben Sie an, wo > packaging\n"
             "2 Verpackung: Legen Sie die Optionen > ready\n"
             "3 Setup erstellen: Der Assistent hat jetzt//Klicken Sie auf \"Fertig > \n"
             "2 :  > ");
  }

  void TheConfigurationProposesItsOptionsUnlessTheAuthorSetOthers() {
    OptionPage f("Config", {{"config", "1"}, {"folder", "aus/probe"}},
                 "[Build1]\nOutputFolder=aus/probe\nLocale=1031\n[Build2]\nLocale= 2055\n");
    QCOMPARE(Shown(*f.page, {"cmbConfiguration", "cmbLanguage"}), "Debug|");
    auto& configuration = Child(*f.page, "cmbConfiguration");
    QTest::keyClick(&configuration, Qt::Key_Down);
    QCOMPARE(Values(f.store), "config=2|folder=" + f.DefaultFolder(2) + "|language=2055");
    QCOMPARE(Shown(*f.page, "cmbLanguage"), "2055 – Deutsch (Schweiz)");

    f.store["folder"] = "eigener";
    QTest::keyClick(&configuration, Qt::Key_Up);
    QCOMPARE(Values(f.store), "config=1|folder=eigener|language=1031");
    Type(Child(*f.page, "cmbLanguage"), "1055");
    QTest::keyClick(&configuration, Qt::Key_Down);
    QCOMPARE(f.store["language"], "1055");
  }

  void TheWheelOverAnUnfocusedBoxChangesNothing() {
    OptionPage f("Config", {{"config", "2"}, {"language", "1031"}});
    Child(*f.page, "cmdSavePages").setFocus();
    for (const char* box : {"cmbConfiguration", "cmbLanguage"}) {
      TurnWheel(Child(*f.page, box), 120);
    }
    QCOMPARE(Values(f.store), "config=2|language=1031");
  }

  void TheValuesFollowSavedPagesUnlessTheAuthorSetOthers() {
    OptionPage f("Config", {{"config", "1"}, {"folder", "alt"}}, "[Build1]\nOutputFolder=alt\n");
    f.window.pages.resize(2);
    FakePage& options = f.window.pages[1];
    const auto save = [&](const std::string& active, const std::string& folder) {
      options.dirty = true;
      options.write = [&f, active, folder] {
        f.project.WriteVersionSetting(1, "BuildCommon", "ActiveConfig", active);
        f.project.WriteVersionSetting(1, "BuildCommon", "InstallerType", active);
        f.project.WriteVersionSetting(1, "Build" + active, "OutputFolder", folder);
        f.project.WriteVersionSetting(1, "Build" + active, "Locale", "1031");
      };
      f.page->ShowValues();
      Press(*f.page, "cmdSavePages");
    };
    save("2", "neu");
    QCOMPARE(Values(f.store), "config=2|folder=neu|installertype=2|language=1031");
    QCOMPARE(Shown(*f.page, {"cmbConfiguration", "cmbLanguage"}),
             "Release|1031 – Deutsch (Deutschland)");
    // The author's own folder, then also his own configuration.
    f.store["folder"] = "eigener";
    save("1", "alt");
    QCOMPARE(Values(f.store), "config=1|folder=eigener|installertype=1|language=1031");
    f.store["config"] = "2";
    save("1", "anders");
    QCOMPARE(Values(f.store), "config=2|folder=eigener|installertype=1|language=1031");
  }

  void UnsavedPagesStayNamedUntilTheyAreSaved() {
    OptionPage f("Config", {{"config", "1"}});
    auto& notice = Child(*f.page, "lblUnsavedPages");
    QVERIFY(!notice.isVisible());
    f.window.pages.resize(2);
    FakePage& page = f.window.pages[1];
    page.title = "Erstellungs-Optionen";
    page.failure = "kaputt";
    page.dirty = true;
    f.page->ShowValues();
    Press(*f.page, "cmdSavePages");
    QVERIFY(notice.isVisible());
    QVERIFY(Shown(*f.page, "lblUnsavedPages").endsWith(":\n• Erstellungs-Optionen"));
    f.lastBuilds.Remember(1, f.store);
    f.dialogs.ExpectQuestion(Text::SaveBeforeBuilding, MessageAnswer::Yes);
    wizards::WizardLauncher(f.services).BuildAgain(1, f.window);
    QCOMPARE(f.dialogs.LastMessage(), "Fehler|kaputt");  // and nothing was built
    page.failure.clear();
    Press(*f.page, "cmdSavePages");
    QVERIFY(!notice.isVisible());
  }

  void OnlyAWholeNumberOrAKnownNameIsALanguage() {
    const std::pair<QString, QString> cases[] = {{"9999", "9999"},
                                                 {"deutsch (ÖSTERREICH)", "3079"},
                                                 {" 1033 – englisch (usa)", "1033"},
                                                 {"1O33", ""},
                                                 {"1031xyz", ""},
                                                 {"", ""},
                                                 {"99999999999", ""},
                                                 {"-1", ""}};
    OptionPage f("Config", {{"config", "1"}, {"language", "1031"}});
    for (const auto& [typed, number] : cases) {
      Type(Child(*f.page, "cmbLanguage"), typed);
      QCOMPARE(Values(f.store), "config=1|language=" + number);
      QCOMPARE(Child(*f.page, "lblLanguageNote").isVisible(), number.isEmpty() && !typed.isEmpty());
    }
  }

  void AStoredTextThatNamesNoLanguageStays() {
    OptionPage f("Config", {{"config", "1"}, {"folder", "aus"}}, "[Build2]\nLocale=Klingonisch\n");
    QTest::keyClick(&Child(*f.page, "cmbConfiguration"), Qt::Key_Down);
    for (const char* typed : {"Klingonische", "Klingonisch"}) {
      Type(Child(*f.page, "cmbLanguage"), typed);
    }
    QCOMPARE(f.store["language"], "Klingonisch");
    QVERIFY(!Child(*f.page, "lblLanguageNote").isVisible());
  }

  void ThePackagingPageListsWhatStandsInTheWayOfTheChosenOptions() {
    OptionPage f("Packaging", {{"folder", "aus"}});
    std::filesystem::remove(f.folder.Path("quelle/hallo.txt"));
    auto& findings = Child<QTreeWidget>(*f.page, "lsvFindings");
    f.page->ShowValues();
    QTRY_VERIFY(Shown(*f.page, "lblCheck").endsWith("1 Fehler, 0 Warnungen"));
    QTest::keyClick(&Child(*f.page, "chkIncludeExe"), Qt::Key_Space);
    QTRY_VERIFY(Shown(*f.page, "lblCheck").endsWith("2 Fehler, 0 Warnungen"));
    QVERIFY2(Rows(findings).contains("Wrapper.exe"), qPrintable(Rows(findings)));
    QVERIFY2(Rows(findings).contains("|Kern=1="), qPrintable(Rows(findings)));
    DoubleClick(findings, findings.model()->index(1, 0));
    QCOMPARE(std::pair(std::int32_t{f.chosen.component}, f.chosen.entry), std::pair(1, 1));
    QVERIFY(!f.page->isVisible());
  }

  void TheOptionsOfTheLastBuildComeBackOnRequest() {
    OptionPage f(
        "Packaging",
        {{"folder", "|a=%;b"}, {"makezip", "1"}, {"includetessel", "1"}, {"compression", "small"}});
    QVERIFY(!Child(*f.page, "cmdAsLastTime").isEnabled());
    f.lastBuilds.Remember(1, f.store);
    f.store = {{"folder", "neu"}};
    f.page->ShowValues();
    Press(*f.page, "cmdAsLastTime");
    QCOMPARE(Values(f.store), "folder=neu|includeexe=|includetessel=1|makezip=1");
    const QString stored = "folder=|a=%;b|includetessel=1|makezip=1";
    QCOMPARE(Values(f.lastBuilds.Of(1)), "compression=small|" + stored);
    QCOMPARE(Values(wizards::LastBuilds(*f.registry, f.project).Of(1)), stored);
  }

  void TheOutputPageShowsWhatWillBeBuilt() {
    const OptionPage f("Output", {{"config", "2"}, {"language", "1031"}, {"folder", "aus"}});
    QCOMPARE(Shown(*f.page, {"txtOverviewProduct", "txtOverviewVersion", "txtOverviewConfiguration",
                             "txtOverviewLanguage", "txtOverviewFolder"}),
             "Probe|1.0.0|Release|1031 – Deutsch (Deutschland)|" +
                 ToQString(f.folder.Path("Produkt/aus")));
    const OptionPage configured("Output", {{"config", "2"}}, "[Build2]\nLocale=1031\n");
    QCOMPARE(Shown(*configured.page, "txtOverviewLanguage"),
             "1031 – Deutsch (Deutschland) (wie in den Erstellungs-Optionen)");
  }

  void TheOutputPageWarnsOfUnsuitableFolders() {
    OptionPage f("Output", {{"folder", "leer"}});
    f.folder.Write("alt/Setup.exe", "");
    f.dialogs.ExpectBrowseFolder(Text::ChooseFolder, f.folder.Path("alt"));
    Press(*f.page, "cmdBrowse");
    QCOMPARE(f.store["folder"], f.folder.Path("alt"));
    QVERIFY(Shown(*f.page, "lblFolderWarning").startsWith("Im gewählten Ausgabeverzeichnis sind"));
    f.dialogs.ExpectBrowseFolder(Text::ChooseFolder, "");
    Press(*f.page, "cmdBrowse");
    QCOMPARE(f.store["folder"], f.folder.Path("alt"));
    for (const auto& [folder, warning] : {std::pair(".",
                                                    "Der Ausgabeordner ist ungültig. Er "
                                                    "enthält das Produkt"),
                                          {"../quelle", "liegen Quelldateien"},
                                          {"./leer", ""}}) {
      Type(Child(*f.page, "txtFolder"), folder);
      QVERIFY2(Shown(*f.page, "lblFolderWarning").contains(warning), folder);
      QCOMPARE(Child(*f.page, "lblFolderWarning").isVisible(), *warning != '\0');
    }
    const int below = Child(*f.page, "fraOverview").y();
    Child<QLabel>(*f.page, "lblFolderWarning").setText(QString("/lang").repeated(300));
    Child(*f.page, "lblFolderWarning").parentWidget()->show();
    QTest::qWait(0);
    QCOMPARE(Child(*f.page, "fraOverview").y(), below);
  }

  void PackagingOptionsStayEmptyUntilTheAuthorChooses() {
    OptionPage f("Packaging", {{"makezip", ""}, {"includeexe", "1"}});
    QCOMPARE(f.page->nextInFocusChain(), &Child(*f.page, "chkMakeZip"));
    for (const char* expected : {"includeexe=0|makezip=", "includeexe=1|makezip="}) {
      QTest::keyClick(&Child(*f.page, "chkIncludeExe"), Qt::Key_Space);
      QCOMPARE(Values(f.store), expected);
    }
    QVERIFY(!Child(*f.page, "cboCompression").isEnabled());  // nothing is packed
    QTest::keyClick(&Child(*f.page, "chkMakeZip"), Qt::Key_Space);
    QTest::keyClick(&Child(*f.page, "cboCompression"), Qt::Key_Down);
    QCOMPARE(Values(f.store), "compression=small|includeexe=1|makezip=1");
  }
};

}  // namespace tests

QTEST_MAIN(tests::WizardsTest)
#include "WizardsTest.moc"
