#include "console/TextReport.h"
#include "tests/support/CallFixture.h"

namespace console {

class ProgramTest : public tests::CallFixture {
 protected:
  ProgramTest() {
    product_.AddComponent("Programm",
                          {Source("lies.txt", std::string(5000, 'a')), Source("zwei.txt", "zwei")});
    project_.WriteProductSetting("Versions", "Count", "2");
    project_.WriteProductSetting("Versions", "Ver2", "1.1.0");
  }

  ExitCode Run(const std::vector<std::string>& arguments) { return Call(RunProgram, arguments); }
  /// Builds version 1.0.0.
  ExitCode Build(std::vector<std::string> options) {
    options.insert(options.begin(), {"Produkt/Probe.product", "1.0.0"});
    return Run(options);
  }
};

TEST(TextReportTest, ShowsHowManyFilesAreFound) {
  std::ostringstream text;
  TextReport report(
      {text, text, true, true}, [] { return false; }, false);
  report.OnProgress({});
  EXPECT_EQ(text.str(), "");
  report.OnProgress({.filesDone = 1200, .bytesDone = 5});
  EXPECT_THAT(text.str(), EndsWith("Dateien werden gesucht: 1.200, 5 Bytes"));
}

TEST_F(ProgramTest, BuildsIntoTheActiveConfigurationsFolder) {
  EXPECT_EQ(Build({}), ExitCode::Built) << errors_;
  EXPECT_TRUE(folder_.Holds("Produkt/Ausgabe/Debug/Probe.zip"));
  EXPECT_THAT(output_, AllOf(HasSubstr("Dateien:    2"), HasSubstr(" 5,0 kB")));
  EXPECT_EQ(errors_, "");

  project_.WriteVersionSetting(1, "BuildCommon", "ActiveConfig", "2");
  project_.WriteVersionSetting(1, "Build2", "OutputFolder", "fertig");
  EXPECT_EQ(Build({"--no-zip", "--quiet"}), ExitCode::Built);
  EXPECT_TRUE(folder_.Holds("Produkt/fertig/InstallPath/zwei.txt"));
  EXPECT_EQ(output_, "");
}

TEST_F(ProgramTest, ReplacesASetupOnlyWhenTold) {
  EXPECT_EQ(Build({"--output", "aus"}), ExitCode::Built);
  EXPECT_EQ(Build({"--output", "aus"}), ExitCode::Stopped);
  EXPECT_THAT(errors_, HasSubstr("(--overwrite ersetzt es): " + folder_.Path("aus")));
  EXPECT_EQ(Build({"--output", "aus", "--overwrite"}), ExitCode::Built);
  EXPECT_THAT(output_, HasSubstr("2 von 2 Dateien unverändert übernommen (5,0 kB)"));
  for (const char* options : {"--fresh", "--compression small", "--threads 3"}) {
    EXPECT_EQ(Build(tools::SplitList("--output aus --overwrite --json " + std::string(options), ' ',
                                     '"')),
              ExitCode::Built);
    EXPECT_THAT(output_, HasSubstr("\"filesTakenOver\":0,\"bytesTakenOver\":0,"));
    EXPECT_THAT(output_, testing::ContainsRegex("\"times\":.\"survey\":.*packing.*script.*total"));
  }
  folder_.Write("aus/wichtig.txt", "x");
  for (const char* option : {"--quiet", "--overwrite"}) {
    EXPECT_EQ(Build({"--output", "aus", option}), ExitCode::Stopped);
    EXPECT_THAT(errors_, HasSubstr("(--force löscht auch das): " + folder_.Path("aus/wichtig")));
  }
  EXPECT_EQ(Build({"--output", "aus", "--force"}), ExitCode::Built);
  EXPECT_FALSE(folder_.Holds("aus/wichtig.txt"));
  for (const char* folder : {"Produkt", "quelle", "", " "}) {
    EXPECT_EQ(Build({"--output", folder, "--force"}), ExitCode::Stopped);
    EXPECT_THAT(errors_, HasSubstr("Der Ausgabeordner ist ungültig. "));
  }
  EXPECT_TRUE(folder_.Holds("aus/Probe.zip"));
  EXPECT_TRUE(folder_.Holds("Produkt/Probe.product"));
}

TEST_F(ProgramTest, NamesThePlaceOfAProblem) {
  tools::DeleteFile(folder_.Path("quelle/zwei.txt"));
  EXPECT_EQ(Build({"--wrapper"}), ExitCode::BuiltWithErrors);
  EXPECT_THAT(errors_, HasSubstr("zwei.txt [Komponente 1 \"Programm\", Eintrag 2]"));
  EXPECT_THAT(errors_, HasSubstr("setup wrapper"));

  EXPECT_EQ(Build({"--overwrite", "--json"}), ExitCode::BuiltWithErrors);
  EXPECT_THAT(output_, HasSubstr("{\"event\":\"error\",\"text\":\""));
  EXPECT_THAT(output_, HasSubstr("\"component\":1,\"componentTitle\":\"Programm\",\"entry\":2}\n"));
  EXPECT_THAT(output_, HasSubstr("{\"event\":\"summary\",\"outcome\":\"finished\","));
  EXPECT_THAT(output_, HasSubstr("\"files\":1,\"bytesIn\":5000,"));
  EXPECT_THAT(output_, EndsWith("\"warnings\":0,\"errors\":1}\n"));
  EXPECT_EQ(errors_, "");
}

TEST_F(ProgramTest, CheckWritesNothing) {
  tools::DeleteFile(folder_.Path("quelle/zwei.txt"));
  const auto before = tools::FindFiles(folder_.Path(), "*", tools::Subfolders::Search);
  EXPECT_EQ(Build({"--check", "--json"}), ExitCode::BuiltWithErrors);
  EXPECT_THAT(output_, EndsWith("{\"event\":\"checked\",\"findings\":1}\n"));
  EXPECT_EQ(tools::FindFiles(folder_.Path(), "*", tools::Subfolders::Search), before);
  EXPECT_FALSE(folder_.Holds("Produkt/Ausgabe"));
}

TEST_F(ProgramTest, ListsWhatAProductHolds) {
  EXPECT_EQ(Run({"Produkt/Probe.product", "--list"}), ExitCode::Built);
  EXPECT_EQ(output_, "Probe\n  1.0.0\n    1  Programm\n  1.1.0\n");
  EXPECT_EQ(Run({"Produkt/Probe.product", "--list", "--json"}), ExitCode::Built);
  EXPECT_EQ(
      output_,
      "{\"event\":\"product\",\"title\":\"Probe\",\"versions\":[{\"version\":\"1.0.0\",\"slot\":1,"
      "\"components\":[{\"slot\":1,\"title\":\"Programm\"}]},"
      "{\"version\":\"1.1.0\",\"slot\":2,\"components\":[]}]}\n");
}

TEST_F(ProgramTest, TellsWhatIsWrongWithACall) {
  for (const char* call :
       {"", "Produkt/Probe.product", "Produkt/Probe.product 1.0.0 --unbekannt",
        "Produkt/Probe.product 1.0.0 --output", "Produkt/Probe.product 9.9.9",
        "Produkt/fehlt.product 1.0.0", "quelle/zwei.txt 1.0.0", "Produkt 1.0.0",
        "Produkt/Probe.product --list --check", "Produkt/Probe.product 1.0.0 --zip --no-zip",
        "Produkt/Probe.product 1.0.0 --zip=false",
        "Produkt/Probe.product 1.0.0 --compression best"}) {
    EXPECT_EQ(Run(tools::SplitList(call, ' ', '"')), ExitCode::BadCall) << call;
    EXPECT_THAT(errors_, StartsWith("packwright-build: "));
    EXPECT_EQ(output_, "");
  }
  EXPECT_EQ(Run({"--help"}), ExitCode::Built);
  EXPECT_THAT(output_, AllOf(HasSubstr("--overwrite"), Not(HasSubstr("--threads"))));
  EXPECT_EQ(Run({"--version"}), ExitCode::Built);
  EXPECT_THAT(output_, StartsWith("packwright-build "));
}

TEST_F(ProgramTest, AFullDiskIsAnExitCodeOfItsOwn) {
  disk_.FailOnce(FaultyDisk::Step::Create, 1);
  EXPECT_EQ(Build({"--output", "aus"}), ExitCode::Stopped);
  EXPECT_THAT(errors_, HasSubstr("Das Setup ist unvollständig: Der Datenträger ist voll."));
  EXPECT_EQ(Build({"--output", "aus", "--overwrite"}), ExitCode::Built);
  disk_.FailOnce(FaultyDisk::Step::Create, 1);
  EXPECT_EQ(Build({"--output", "aus", "--overwrite"}), ExitCode::Stopped);
  EXPECT_THAT(errors_, HasSubstr("Der bisherige Inhalt des Ausgabeordners bleibt unverändert."));
  EXPECT_TRUE(folder_.Holds("aus/Probe.zip"));
}

TEST_F(ProgramTest, TellsNumbersThatAreOutOfRange) {
  folder_.Write("Produkt/Ausgabe/Release/Probe.zip", "alt");
  for (const char* active : {"3000000000", "7", ""}) {
    SCOPED_TRACE(active);
    project_.WriteVersionSetting(1, "BuildCommon", "ActiveConfig", active);
    EXPECT_EQ(Build({"--overwrite"}), ExitCode::Stopped);
    EXPECT_THAT(errors_, HasSubstr("product.version ([BuildCommon] ActiveConfig"));
    EXPECT_EQ(Build({"--check"}), ExitCode::BuiltWithErrors);
    EXPECT_THAT(output_, HasSubstr("1 Beanstandung."));
  }
  EXPECT_TRUE(folder_.Holds("Produkt/Ausgabe/Release/Probe.zip"));
}

TEST_F(ProgramTest, AnInterruptedBuildLeavesNoArchive) {
  interrupted_ = [] { return true; };
  EXPECT_EQ(Build({"--output", "aus"}), ExitCode::Stopped);
  EXPECT_EQ(errors_, "packwright-build: Abgebrochen.\n");
  EXPECT_EQ(tools::FindFiles(folder_.Path("aus"), "*", tools::Subfolders::Search).size(), 0U);
  EXPECT_EQ(Build({"--check"}), ExitCode::Stopped);
  EXPECT_EQ(Run({"Produkt/Probe.product", "--list"}), ExitCode::Stopped);
  EXPECT_EQ(output_, "Probe\n  1.0.0\n");
}

TEST_F(ProgramTest, AListingOfOneFolderCanBeInterrupted) {
  for (int i = 0; i < 500; ++i) folder_.Write("viele/" + std::to_string(i), "");
  product_.AddComponent("Viele", {tests::TestProduct::Scan(folder_.Path("viele"), "*.*")});
  static int asked;
  asked = 0;
  interrupted_ = [] { return ++asked > 100; };
  EXPECT_EQ(Build({"--check"}), ExitCode::Stopped);
  EXPECT_EQ(asked, 101);
}

TEST_F(ProgramTest, WarningsCountWhenTheyAreToldTo) {
  const std::string twice = Source("zwei.txt", "zwei");
  product_.AddComponent("Doppelt", {twice, twice});
  EXPECT_EQ(Build({"--output", "aus"}), ExitCode::Built);
  EXPECT_EQ(Build({"--output", "aus", "--overwrite", "--strict"}), ExitCode::BuiltWithErrors);
}

TEST_F(ProgramTest, AConfinedBuildStaysInTheProductsFolder) {
  const std::string outside = "liegt außerhalb des Ordners des Produkts: ";
  EXPECT_EQ(Build({"--confine"}), ExitCode::Stopped);
  EXPECT_THAT(errors_, HasSubstr(outside + folder_.Path("quelle")));
  EXPECT_EQ(Build({"--confine", "--check"}), ExitCode::BuiltWithErrors);
  EXPECT_THAT(errors_, HasSubstr(outside + folder_.Path("quelle")));
  folder_.Write("Produkt/quelle/a.txt", "a");
  project_.WriteVersionSetting(1, "Components", "Count", "0");
  product_.AddComponent("A", {tests::TestProduct::Scan("quelle", "*")});
  EXPECT_EQ(Build({"--confine"}), ExitCode::Built) << errors_;
  EXPECT_EQ(Build({"--confine", "--check"}), ExitCode::Built) << errors_;
  EXPECT_EQ(Build({"--confine", "--output", "aus"}), ExitCode::Stopped);
  EXPECT_THAT(errors_, HasSubstr(outside + folder_.Path("aus")));
  std::error_code failure;
  std::filesystem::create_symlink(folder_.Path("quelle/lies.txt"),
                                  folder_.Path("Produkt/quelle/l.txt"), failure);
  if (failure) GTEST_SKIP() << "no links here";
  EXPECT_EQ(Build({"--confine", "--overwrite"}), ExitCode::Stopped);
  EXPECT_THAT(errors_, HasSubstr(outside + folder_.Path("quelle")));
}

TEST_F(ProgramTest, ADateFromOutsideMakesBuildsTheSameAtAnyTime) {
  sourceDate_ = "1000000001";
  EXPECT_EQ(Build({"--output", "1", "--prove"}), ExitCode::Built) << errors_;
  EXPECT_EQ(Build({"--output", "b1", "--no-zip"}), ExitCode::Built) << errors_;
  tools::SetTreeTime(folder_.Path("quelle"), tools::FileTime());
  EXPECT_EQ(Build({"--output", "2"}), ExitCode::Built) << errors_;
  for (const char* name : {"Probe.zip", "Probe.install", "build.log"}) {
    EXPECT_TRUE(folder_.Read(std::string("1/") + name) == folder_.Read(std::string("2/") + name));
  }
  EXPECT_THAT(folder_.Read("1/build.log"), HasSubstr("Created: 2001-09-09 01:46:41\r\n"));
  EXPECT_THAT(folder_.Read("1/Probe.install"), HasSubstr("(C) 2001 by"));
  for (const char* name : {"b1/InstallPath/lies.txt", "b1/InstallPath", "b1/build.log"}) {
    EXPECT_EQ(tools::StampOf(folder_.Path(name)).modified,
              tools::FileTime(std::chrono::seconds(1'000'000'001)));
  }
  sourceDate_ = "gestern";
  EXPECT_EQ(Build({"--output", "3"}), ExitCode::BadCall);
}

}  // namespace console
