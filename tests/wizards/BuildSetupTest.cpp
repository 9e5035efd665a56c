#include <QTest>
#include <memory>

#include "model/TextTable.h"
#include "tests/support/FakeWindow.h"
#include "tests/support/FaultyDisk.h"
#include "tests/support/FixedClock.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/TestProduct.h"
#include "tests/support/desktop/Widgets.h"
#include "tools/Error.h"
#include "wizards/BuildSetup.h"

namespace tests {

class BuildSetupTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    folder_ = std::make_unique<TemporaryFolder>();
    product_ = std::make_unique<TestProduct>(*folder_);
    dialogs_ = std::make_unique<ScriptedDialogs>();
    disk_ = std::make_unique<FaultyDisk>(system_);
    product_->AddComponent("A", {TestProduct::File(folder_->Write("a.txt", "a"))});
    settings_ = {{"folder", folder_->Path("aus")}, {"makezip", "1"}};
  }

  void ABuildWithoutProblemsOnlyShowsItsNotice() {
    Build();
    QVERIFY(folder_->Holds("aus/Probe.zip"));
    QCOMPARE(dialogs_->Notices(), std::vector{model::LoadText(model::Text::BuildingSetup)});
    QCOMPARE(Told(*dialogs_), "");
    QCOMPARE(dialogs_->OpenNotices(), 0U);
  }

  void ErrorsAreToldWithTheNameOfTheLog() {
    settings_["includetessel"] = "-1";
    Build();
    QCOMPARE(Told(*dialogs_),
             "Warnung|Beim Erstellen sind Fehler aufgetreten.\r\nDie Fehler "
             "wurden in einer Protokolldatei mit dem Namen \"build.log\" im "
             "Ausgabe-Ordner gespeichert.");
    QCOMPARE(dialogs_->OpenNotices(), 0U);
  }

  void ARefusedFolderIsToldWithoutTheReason() {
    settings_["folder"] = folder_->Path("Produkt");
    Build();
    QCOMPARE(Told(*dialogs_), "Fehler|Der Ausgabeordner ist ungültig.");
    QCOMPARE(dialogs_->OpenNotices(), 1U);
  }

  void TheAuthorDecidesWhetherFilesAreDeleted_data() {
    QTest::addColumn<tools::MessageAnswer>("answer");
    QTest::addColumn<bool>("kept");
    QTest::addColumn<std::size_t>("notices");
    QTest::addRow("Nein") << tools::MessageAnswer::No << true << std::size_t{1};
    QTest::addRow("Ja") << tools::MessageAnswer::Yes << false << std::size_t{0};
  }
  void TheAuthorDecidesWhetherFilesAreDeleted() {
    QFETCH(tools::MessageAnswer, answer);
    folder_->Write("aus/alt.txt", "alt");
    dialogs_->ExpectQuestion("gelöscht.\r\n\r\nMöchten Sie wirklich fortfahren?", answer);
    Build();
    QTEST(folder_->Holds("aus/alt.txt"), "kept");
    QTEST(dialogs_->OpenNotices(), "notices");
    const tools::Message& question = dialogs_->Messages().front();
    QCOMPARE(question.caption, "Warnung");
    QCOMPARE(question.defaultAnswer, tools::MessageAnswer::No);
    QCOMPARE(question.icon, tools::MessageIcon::Exclamation);
  }

  void AnOldSetupThatStaysOnAFullDiskIsTold() {
    folder_->Write("aus/Probe.zip", "alt");
    dialogs_->ExpectQuestion("gelöscht", tools::MessageAnswer::Yes);
    disk_->FailOnce(FaultyDisk::Step::Write, 1);
    Build();
    QVERIFY(
        Told(*dialogs_).endsWith("Warnung|Beim Erstellen sind Fehler aufgetreten.\r\nDer "
                                 "Datenträger ist voll. Der bisherige Inhalt des "
                                 "Ausgabeordners bleibt unverändert."));
    QCOMPARE(QString::fromStdString(folder_->Read("aus/Probe.zip")), "alt");
    QCOMPARE(dialogs_->OpenNotices(), 1U);
  }

  void OptionsAreReadFromText_data() {
    QTest::addColumn<std::string>("text");
    QTest::addColumn<bool>("packaged");
    QTest::addColumn<bool>("programs");
    QTest::addRow("empty") << std::string() << false << false;
    QTest::addRow("0") << std::string("0") << false << false;
    QTest::addRow("1") << std::string("1") << true << true;
    QTest::addRow("2") << std::string("2 x") << false << true;
    QTest::addRow("-1") << std::string("-1") << false << true;
  }
  void OptionsAreReadFromText() {
    QFETCH(std::string, text);
    const engine::BuildOptions options = wizards::ReadBuildOptions(
        {{"makezip", text}, {"includeexe", text}, {"includetessel", text}});
    QTEST(options.packaged, "packaged");
    QTEST(options.includeWrapper, "programs");
    QTEST(options.includeRuntime, "programs");
    QVERIFY(options.folder.empty());
  }

  void ANumberOutOfRangeEndsTheBuild() {
    settings_["includeexe"] = "32768";
    QVERIFY_THROWS_EXCEPTION(tools::Error, Build());
    QCOMPARE(dialogs_->OpenNotices(), 0U);
  }

 private:
  void Build() {
    FakeWindow window;
    model::ModProjectOperations operations(product_->Project(), *disk_, *dialogs_, clock_, window);
    wizards::BuildSetup(
        {product_->Project(), operations, *dialogs_, clock_, *disk_, folder_->Path("programm")},
        settings_, 1);
  }

  std::unique_ptr<TemporaryFolder> folder_;
  std::unique_ptr<TestProduct> product_;
  std::unique_ptr<ScriptedDialogs> dialogs_;
  tools::SystemDisk system_;
  std::unique_ptr<FaultyDisk> disk_;
  FixedClock clock_;
  tools::WizardDataStore settings_;
};

}  // namespace tests

QTEST_MAIN(tests::BuildSetupTest)
#include "BuildSetupTest.moc"
