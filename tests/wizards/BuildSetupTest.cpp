#include <QTest>

#include "tests/support/ProductDesk.h"
#include "tests/support/desktop/UserHome.h"
#include "tests/support/desktop/Widgets.h"
#include "tools/Error.h"
#include "wizards/BuildSetup.h"
#include "wizards/LastBuilds.h"

namespace tests {

/// A product with one file, built as the wizard does.
struct Fixture : ProductDesk {
  Fixture() { product.AddComponent("A", {product.File(folder.Write("a.txt", "a"))}); }

  void Build() { Build(dialogs); }
  void Build(tools::Dialogs& author) {
    const auto registry = RegistryBelow(folder, disk);
    wizards::LastBuilds lastBuilds(*registry, project);
    wizards::BuildSetup({.project = project,
                         .operations = operations,
                         .dialogs = author,
                         .clock = clock,
                         .disk = disk,
                         .lastBuilds = lastBuilds,
                         .programFolder = folder.Path("programm"),
                         .isEndWanted = [this] { return isEndWanted; },
                         .onBuilt = [this](const engine::BuildResult& built) { result = built; }},
                        settings, 1, wizards::AfterRefusal::LeaveNotice);
  }

  bool isEndWanted = false;
  engine::BuildResult result;
  tools::WizardDataStore settings{{"folder", folder.Path("aus")}, {"makezip", "1"}};
};

class BuildSetupTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void AStoppedBuildLeavesNothing() {
    for (const bool byAuthor : {false, true}) {
      Fixture f;
      f.isEndWanted = !byAuthor;
      if (byAuthor) f.dialogs.StopWork();
      f.Build();
      QVERIFY(!f.folder.Holds("aus/Probe.zip"));
      QCOMPARE(Told(f.dialogs), "");
      QCOMPARE(f.dialogs.OpenNotices(), 0U);
    }
  }

  void ErrorsAreToldWithTheNameOfTheLog() {
    Fixture f;
    f.settings["includetessel"] = "-1";
    f.Build();
    QVERIFY(Told(f.dialogs).startsWith("Warnung|"));
    QVERIFY(Told(f.dialogs).contains("\"build.log\""));
    QCOMPARE(f.dialogs.OpenNotices(), 0U);
  }

  void ARefusedFolderIsToldWithoutTheReason() {
    Fixture f;
    f.settings["folder"] = f.folder.Path("Produkt");
    f.Build();
    QCOMPARE(Told(f.dialogs), "Fehler|Der Ausgabeordner ist ungültig.");
    QCOMPARE(f.dialogs.OpenNotices(), 1U);
  }

  void TheAuthorDecidesWhetherFilesAreDeleted() {
    for (const bool yes : {false, true}) {
      Fixture f;
      f.folder.Write("aus/alt.txt", "alt");
      f.dialogs.ExpectQuestion("gelöscht.\r\n\r\nMöchten Sie wirklich fortfahren?",
                               yes ? MessageAnswer::Yes : MessageAnswer::No);
      f.Build();
      QCOMPARE(f.folder.Holds("aus/alt.txt"), !yes);
      QCOMPARE(f.dialogs.OpenNotices(), yes ? 0U : 1U);
      QVERIFY(Told(f.dialogs).startsWith("Warnung|"));
      QCOMPARE(f.dialogs.LastStyle(), "!No");
    }
  }

  void TheTimeOfAnAnswerIsNotTheBuilds() {
    struct SlowAuthor : ScriptedDialogs {
      explicit SlowAuthor(FixedClock& turned) : clock(turned) {}
      MessageAnswer ShowMessage(const tools::Message& message) override {
        clock.Turn(std::chrono::minutes(1));
        return ScriptedDialogs::ShowMessage(message);
      }
      FixedClock& clock;
    };
    Fixture f;
    f.folder.Write("aus/alt.txt", "alt");
    SlowAuthor author(f.clock);
    author.ExpectQuestion(Text::OutputFolderHoldsFiles, MessageAnswer::Yes);
    f.Build(author);
    QCOMPARE(f.result.duration.count(), 0);
  }

  void AnOldSetupThatStaysOnAFullDiskIsTold() {
    Fixture f;
    f.folder.Write("aus/Probe.zip", "alt");
    f.dialogs.ExpectQuestion(Text::OutputFolderHoldsFiles, MessageAnswer::Yes);
    f.disk.FailOnce(FaultyDisk::Step::Write, 1);
    f.Build();
    QVERIFY(
        Told(f.dialogs).endsWith("Warnung|Beim Erstellen sind Fehler aufgetreten.\r\nDer "
                                 "Datenträger ist voll. Der bisherige Inhalt des "
                                 "Ausgabeordners bleibt unverändert."));
    QCOMPARE(f.folder.Read("aus/Probe.zip"), "alt");
    QCOMPARE(f.dialogs.OpenNotices(), 1U);
  }

  void OptionsAreReadFromText() {
    const std::pair<const char*, QString> rows[] = {
        {"", "000"}, {"0", "000"}, {"1", "111"}, {"2 x", "011"}, {"-1", "011"}};
    for (const auto& [text, flags] : rows) {
      const engine::BuildOptions options = wizards::ReadBuildOptions(
          {{"makezip", text}, {"includeexe", text}, {"includetessel", text}});
      QCOMPARE(QString("%1%2%3")
                   .arg(options.packaged)
                   .arg(options.includeWrapper)
                   .arg(options.includeRuntime),
               flags);
    }
    QVERIFY_THROWS_EXCEPTION(tools::Error,
                             (void)wizards::ReadBuildOptions({{"includeexe", "32768"}}));
  }
};

}  // namespace tests

QTEST_MAIN(tests::BuildSetupTest)
#include "BuildSetupTest.moc"
