#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/Widgets.h"
#include "tests/wizards/OpenSample.h"
#include "wizards/ProgramWizards.h"
#include "wizards/UpdateWizard.h"

namespace tests {

using tools::MessageIcon;
using tools::WizardStructure;

class ProgramWizardsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TheSetupWizardBuildsTheVersionPackagedAsChosen() {
    OpenSample sample;
    StartSetup(sample, [&sample](WizardStructure& frame) {
      QCOMPARE(frame.windowTitle(), "Setup-Erstellungs-Assistent");
      const tools::WizardDataStore expected{
          {"config", "1"},        {"folder", sample.project.DefaultOutputFolder(1)},
          {"includeexe", ""},     {"includetessel", ""},
          {"installertype", "1"}, {"language", ""},
          {"makezip", ""}};
      QCOMPARE(frame.DataStore(), expected);
      for (const char* title : {"Willkommen", "Konfiguration wählen", "Ausgabe-Optionen"}) {
        QCOMPARE(Shown(frame, "lblPageTitle"), title);
        QVERIFY(!Child(frame, "cmdFinish").isEnabled());
        Press(frame, "cmdNext");
      }
      QCOMPARE(Shown(frame, "lblPageTitle"), "Verpackung");
      QTest::mouseClick(&Child(frame, "chkMakeZip"), Qt::LeftButton, {}, QPoint(8, 8));
      Press(frame, "cmdNext");
      QCOMPARE(Shown(frame, "lblPageTitle"), "Setup erstellen");
      Press(frame, "cmdFinish");
    });
    QVERIFY(sample.folder.Holds("Ausgabe/Debug/Demo.zip"));
    QVERIFY(sample.folder.Holds("Ausgabe/Debug/Demo.install"));
    QCOMPARE(Told(sample.dialogs), "Setup-Erstellungs-Assistent|Das Setup wurde erstellt.");
    QCOMPARE(sample.dialogs.Messages().back().icon, MessageIcon::Information);
    QCOMPARE(sample.dialogs.OpenNotices(), 0U);
  }

  void StoredOptionsAreTheFirstValuesAndTheClosingMessageFollowsABuildThatIsRefusedOrFails() {
    OpenSample sample("[BuildCommon]\nActiveConfig=2\n[Build2]\nOutputFolder=voll\nLocale=1031\n");
    sample.folder.Write("voll/alt.txt", "alt");
    sample.dialogs.ExpectQuestion("unwiderruflich gelöscht", tools::MessageAnswer::No);
    const auto finish = [](WizardStructure& frame) {
      auto& store = frame.DataStore();
      QCOMPARE(store["config"] + store["folder"] + store["language"], "2voll");
      while (Child(frame, "cmdNext").isEnabled()) Press(frame, "cmdNext");
      Press(frame, "cmdFinish");
    };
    StartSetup(sample, finish);
    QVERIFY(sample.folder.Holds("voll/alt.txt"));
    sample.project.SetProductTitle("De/mo");
    StartSetup(sample, finish);
    const QString end = "Setup-Erstellungs-Assistent|Das Setup wurde erstellt.";
    QVERIFY(Told(sample.dialogs).contains("\n" + end + "\nFehler|"));
    QVERIFY(Told(sample.dialogs).endsWith("\n" + end));
    StartSetup(sample, [](WizardStructure& frame) { QTest::keyClick(&frame, Qt::Key_Escape); });
    QCOMPARE(sample.dialogs.Messages().size(), 4U);
  }

  void TheUpdateWizardLeadsToAnEmptyPageFromWhichBackAndCancelWork() {
    OpenSample sample;
    ModalScript script;
    script.Expect<WizardStructure>("wizardStructure", [](WizardStructure& frame) {
      QCOMPARE(frame.windowTitle(), "Update-Erstellungs-Assistent");
      QVERIFY(frame.DataStore().empty());
      for (const char* key : {"intro", "configuration"}) {
        QCOMPARE(frame.CurrentPage(), key);
        Press(frame, "cmdNext");
      }
      QCOMPARE(frame.findChildren<tools::WizardOptionPage*>().size(), 0);
      QCOMPARE(frame.CurrentPage(), "...");
      QCOMPARE(Shown(frame, "lblPageTitle"), "");
      for (const char* button : {"cmdNext", "cmdFinish"})
        QVERIFY(!Child(frame, button).isEnabled());
      Press(frame, "cmdBack");
      QCOMPARE(frame.CurrentPage(), "configuration");
      Press(frame, "cmdCancel");
    });
    wizards::ProgramWizards(sample.Services()).StartUpdateWizard(1);
    const tools::WizardPage end = wizards::UpdateWizard(sample.dialogs, {}).ShowPage("summary");
    QCOMPARE(end.PageTitle, "Nothing to it");
    QVERIFY(end.AllowFinish && end.ForwardStep.empty());
  }

  void AFrameThatCannotBeMadeIsReported() {
    OpenSample sample;
    wizards::SetupWizard wizard(
        sample.Services(), 1,
        [](tools::WizardDriver&) -> std::unique_ptr<WizardStructure> { throw std::bad_alloc(); });
    wizard.Start();
    QCOMPARE(sample.dialogs.LastMessage(), "Error|Cannot display wizard.");
    QCOMPARE(sample.dialogs.Messages().back().icon, MessageIcon::Critical);
    wizard.ShowHelp("intro");
    QCOMPARE(sample.dialogs.LastMessage(), "Help|No help is available at this time.");
    QCOMPARE(sample.dialogs.Messages().back().icon, MessageIcon::Exclamation);
  }

 private:
  static void StartSetup(OpenSample& sample, const std::function<void(WizardStructure&)>& act) {
    ModalScript script;
    script.Expect<WizardStructure>("wizardStructure", act);
    wizards::ProgramWizards(sample.Services()).StartSetupWizard(1);
  }
};

}  // namespace tests

QTEST_MAIN(tests::ProgramWizardsTest)
#include "ProgramWizardsTest.moc"
