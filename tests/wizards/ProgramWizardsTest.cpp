#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/Widgets.h"
#include "tests/wizards/OpenSample.h"
#include "wizards/ProgramWizards.h"
#include "wizards/UpdateWizard.h"

namespace tests {

using tools::MessageAnswer;
using tools::MessageIcon;
using tools::WizardStructure;

namespace {

QString Title(const QWidget& frame) { return Child<QLabel>(frame, "lblPageTitle").text(); }

void GoToTheEnd(WizardStructure& frame) {
  while (Child<QPushButton>(frame, "cmdNext").isEnabled()) Press(frame, "cmdNext");
}

}  // namespace

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
      QCOMPARE(Title(frame), "Willkommen");
      for (const char* title : {"Konfiguration wählen", "Ausgabe-Optionen", "Verpackung"}) {
        QVERIFY(!Child(frame, "cmdFinish").isEnabled());
        Press(frame, "cmdNext");
        QCOMPARE(Title(frame), title);
      }
      QTest::mouseClick(&Child(frame, "chkMakeZip"), Qt::LeftButton, {}, QPoint(8, 8));
      Press(frame, "cmdNext");
      QCOMPARE(Title(frame), "Setup erstellen");
      Press(frame, "cmdFinish");
    });
    QVERIFY(sample.folder.Holds("Ausgabe/Debug/Demo.zip"));
    QVERIFY(sample.folder.Holds("Ausgabe/Debug/Demo.install"));
    QCOMPARE(sample.dialogs.Messages().size(), 1U);
    const tools::Message& closing = sample.dialogs.Messages().back();
    QCOMPARE(closing.text, "Das Setup wurde erstellt.");
    QCOMPARE(closing.caption, "Setup-Erstellungs-Assistent");
    QCOMPARE(closing.icon, MessageIcon::Information);
    QCOMPARE(sample.dialogs.OpenNotices(), 0U);
  }

  void TheStoredBuildOptionsAreTheFirstValues() {
    OpenSample sample(
        "[BuildCommon]\nInstallerType=1\nActiveConfig=2\n[Build2]\nOutputFolder=aus\n"
        "Locale=1031\n");
    StartSetup(sample, [](WizardStructure& frame) {
      QCOMPARE(frame.DataStore()["config"], "2");
      QCOMPARE(frame.DataStore()["folder"], "aus");
      QCOMPARE(frame.DataStore()["language"], "");
      QTest::keyClick(&frame, Qt::Key_Escape);
    });
    QVERIFY(!sample.folder.Holds("aus"));
    QVERIFY(sample.dialogs.Messages().empty());
  }

  void TheClosingMessageAlsoFollowsARefusedBuildAndOneThatFails() {
    OpenSample sample("[Build1]\nOutputFolder=voll\n");
    sample.folder.Write("voll/alt.txt", "alt");
    sample.dialogs.ExpectQuestion("unwiderruflich gelöscht", MessageAnswer::No);
    const auto finish = [](WizardStructure& frame) {
      GoToTheEnd(frame);
      Press(frame, "cmdFinish");
    };
    StartSetup(sample, finish);
    QVERIFY(sample.folder.Holds("voll/alt.txt"));
    QCOMPARE(sample.dialogs.Messages().size(), 2U);
    QCOMPARE(sample.dialogs.Messages().back().text, "Das Setup wurde erstellt.");

    sample.project.SetProductTitle("De/mo");
    StartSetup(sample, finish);
    QCOMPARE(sample.dialogs.Messages().size(), 4U);
    QCOMPARE(sample.dialogs.Messages().at(2).caption, "Fehler");
    QCOMPARE(sample.dialogs.Messages().back().text, "Das Setup wurde erstellt.");
  }

  void TheUpdateWizardLeadsNowhereAndItsFinishDoesNothing() {
    OpenSample sample;
    {
      ModalScript script;
      script.Expect<WizardStructure>("wizardStructure", [](WizardStructure& frame) {
        QCOMPARE(frame.windowTitle(), "Update-Erstellungs-Assistent");
        QVERIFY(frame.DataStore().empty());
        QCOMPARE(Title(frame), "Introduction");
        Press(frame, "cmdNext");
        QCOMPARE(frame.CurrentPage(), "configuration");
        QCOMPARE(frame.findChildren<tools::WizardOptionPage*>().size(), 0);
        Press(frame, "cmdNext");
        QCOMPARE(frame.CurrentPage(), "...");
        Press(frame, "cmdCancel");
      });
      wizards::ProgramWizards(sample.Services()).StartUpdateWizard(1);
    }
    ModalScript script;
    script.Expect<WizardStructure>("wizardStructure", [](WizardStructure& frame) {
      QCOMPARE(Title(frame), "Nothing to it");
      Press(frame, "cmdFinish");
    });
    const tools::WizardPageRegistry none;
    wizards::UpdateWizard(sample.dialogs, [&](tools::WizardDriver& driver) {
      return std::make_unique<WizardStructure>(driver, none, sample.dialogs);
    }).Start("summary");
    QVERIFY(sample.dialogs.Messages().empty());
  }

  void AFrameThatCannotBeMadeIsReported() {
    OpenSample sample;
    wizards::SetupWizard wizard(
        sample.Services(), 1,
        [](tools::WizardDriver&) -> std::unique_ptr<WizardStructure> { throw std::bad_alloc(); });
    wizard.Start();
    wizard.ShowHelp("intro");
    const tools::Message& refusal = sample.dialogs.Messages().at(0);
    QCOMPARE(refusal.text, "Cannot display wizard.");
    QCOMPARE(refusal.caption, "Error");
    QCOMPARE(refusal.icon, MessageIcon::Critical);
    const tools::Message& help = sample.dialogs.Messages().at(1);
    QCOMPARE(help.text, "No help is available at this time.");
    QCOMPARE(help.caption, "Help");
    QCOMPARE(help.icon, MessageIcon::Exclamation);
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
