#include <filesystem>

#include "build/BuildSetup.h"
#include "tests/support/BuildFixture.h"
#include "tests/support/FaultyDisk.h"
#include "tools/Error.h"
#include "tools/Files.h"

namespace build {
namespace {

using tests::FaultyDisk;
using tests::TestProduct;

class BuildSetupTest : public tests::BuildFixture {};

TEST_F(BuildSetupTest, StoresATreeUnderDestinationFolders) {
  model::ICFile program = Source("start.exe", "MZ");
  program.TargetFolder = 38;
  program.TargetSubFolder = "a\\b/c";
  program.TargetName = "anders.exe";
  program.Overwrite = 1;
  model::ICFile custom = Source("lies mich.txt", "Hallo");
  custom.TargetFolder = 2004;
  custom.TargetSubFolder = "D_\\Ziel";
  custom.Vital = 0;
  product_.AddComponent("Programm", {program});
  product_.AddComponent("", {});
  product_.AddComponent("Hilfe", {custom});
  Run();
  EXPECT_EQ(Out("ProgramFiles/a/b/c/start.exe"), "MZ");
  EXPECT_EQ(Out("CUSTOM/D_/Ziel/lies mich.txt"), "Hallo");
  EXPECT_EQ(std::filesystem::last_write_time(tools::ToPath(folder_.Path("quelle/start.exe"))),
            std::filesystem::last_write_time(
                tools::ToPath(folder_.Path("aus/ProgramFiles/a/b/c/start.exe"))));
  EXPECT_EQ(ScriptLines(), R"S('Install files for "Programm"
If Not ReplSafe("%SrcPath%\ProgramFiles\a\b\c\start.exe", "%ProgramFiles%\a\b/c\anders.exe", , False) Then
ErrMsg "Eine Datei konnte nicht installiert werden (%ProgramFiles%\a\b/c\anders.exe)", "Fehler"
CancelInstall "Fehler beim Installieren von Dateien"
Else
End If

'Install files for "Hilfe"
If Not Add("%SrcPath%\CUSTOM\D_\Ziel\lies mich.txt", "D_\Ziel\lies mich.txt") Then
ErrMsg "Eine Datei konnte nicht installiert werden (D_\Ziel\lies mich.txt)", "Fehler"
Else
End If

End Sub

'--- End of installation script ---
)S");
  EXPECT_EQ(LogLines(), "");
  EXPECT_EQ(status_.summary->outcome, BuildOutcome::Finished);
  EXPECT_EQ(status_.summary->files, 2U);
  EXPECT_EQ(status_.summary->bytesOut, 7U);
  EXPECT_EQ(dialogs_.Notices(),
            std::vector<std::string>{"Das Setup wird erzeugt, bitte warten..."});
  EXPECT_EQ(dialogs_.OpenNotices(), 0U);
  EXPECT_TRUE(dialogs_.Messages().empty());
  EXPECT_FALSE(HasOut("Setup.exe"));
}

TEST_F(BuildSetupTest, WritesTheHeadOfTheScriptFromTheProject) {
  product_.Project().WriteVersionSetting(1, "Tessel", "Key", "{K}");
  settings_["installertype"] = "9";
  settings_["config"] = "7";
  settings_["language"] = "1031";
  Run();
  const std::string script = Out("Probe.install");
  EXPECT_NE(script.find("' Copyright (C) 2031 by Änne Müller\r\n"
                        "' Created with Quillon Packwright 1.2.3\r\n\r\n"),
            std::string::npos);
  EXPECT_NE(script.find("RegPrd \"{K}\", \"Probe\", 1\r\n\r\n"), std::string::npos);
}

TEST_F(BuildSetupTest, LogsProblemsInVisitingOrderAndGoesOn) {
  model::ICFile missing = TestProduct::File(folder_.Path("weg/fehlt.txt"));
  model::ICFile empty = TestProduct::Scan("quelle\\leer", "*.xyz");
  model::ICFile outside = Source("b.txt", "b");
  outside.TargetSubFolder = "..\\..\\draussen";
  model::ICFile excluded = missing;
  excluded.Exclude = 1;
  model::ICFile dynamic = missing;
  dynamic.Type = 3;
  model::ICFile notExcluded = Source("c.txt", "c");
  notExcluded.Exclude = 2;
  product_.AddComponent("A", {missing, empty, outside, excluded, dynamic});
  product_.AddComponent("B", {notExcluded, Source("d.txt", "d")});
  product_.Project().WriteComponentSetting(1, 2, "File2", "Vital", "99999");
  Run();
  const std::string log = LogLines();
  const std::string expected = "ERROR: File missing: " + folder_.Path("weg/fehlt.txt") +
                               "\r\nWarning: No files found in 'quelle\\leer' matching '*.xyz'\r\n"
                               "ERROR: Unable to copy file '" +
                               folder_.Path("quelle/b.txt") + "' to new location: ";
  ASSERT_TRUE(log.starts_with(expected)) << log;
  EXPECT_NE(log.find("\r\nERROR: File 2 of component 'B' is left out: "), std::string::npos) << log;
  EXPECT_FALSE(folder_.Holds("draussen"));
  EXPECT_EQ(Out("InstallPath/c.txt"), "c");
  EXPECT_FALSE(HasOut("InstallPath/d.txt"));
  ASSERT_EQ(status_.messages.size(), 4U);
  EXPECT_EQ(status_.messages[2].componentTitle, "A");
  EXPECT_EQ(status_.messages[2].entry, 3);
  EXPECT_EQ(status_.summary->errors, 3);
  EXPECT_EQ(status_.summary->warnings, 1);
  ASSERT_EQ(dialogs_.Messages().size(), 1U);
  EXPECT_EQ(dialogs_.Messages()[0].text,
            "Beim Erstellen sind Fehler aufgetreten.\r\nDie Fehler wurden in einer Protokolldatei "
            "mit dem Namen \"build.log\" im Ausgabe-Ordner gespeichert.");
  EXPECT_EQ(dialogs_.Messages()[0].caption, "Warnung");
}

TEST_F(BuildSetupTest, ShowsNoMessageForWarningsAlone) {
  model::ICFile twice = Source("a.txt", "a");
  product_.AddComponent("A", {twice, twice, TestProduct::Scan("nirgends", "*")});
  Run();
  EXPECT_EQ(LogLines(), "Warning: Stored name of '" + folder_.Path("quelle/a.txt") +
                            "' is already recorded under ID '" + twice.ID +
                            "'\r\nWarning: No files found in 'nirgends' matching '*'\r\n");
  EXPECT_TRUE(dialogs_.Messages().empty());
}

TEST_F(BuildSetupTest, TakesRelativeSourcesFromTheProductFolder) {
  folder_.Write("Produkt/dateien/ü/x.txt", "x");
  folder_.Write("Produkt/dateien/a.TXT", "a");
  model::ICFile single = TestProduct::File("x.txt");
  single.SourcePath = "dateien\\ü";
  model::ICFile scan = TestProduct::Scan("x", "*.txt");
  scan.SourcePath = "dateien/";
  scan.TargetFolder = 38;
  product_.AddComponent("A", {single, scan});
  Run();
  EXPECT_EQ(Out("InstallPath/x.txt"), "x");
  EXPECT_EQ(Out("ProgramFiles/a.TXT"), "a");
  EXPECT_EQ(Out("ProgramFiles/x.txt"), "x");
  EXPECT_EQ(LogLines(), "");
}

TEST_F(BuildSetupTest, RefusesABlankOutputFolder) {
  settings_["folder"] = "  ";
  Run();
  ASSERT_EQ(dialogs_.Messages().size(), 1U);
  EXPECT_EQ(dialogs_.Messages()[0].text, "Der Ausgabeordner ist ungültig.");
  EXPECT_EQ(dialogs_.Messages()[0].caption, "Fehler");
  EXPECT_EQ(status_.summary->outcome, BuildOutcome::InvalidOutputFolder);
  EXPECT_EQ(dialogs_.OpenNotices(), 1U);
}

TEST_F(BuildSetupTest, AsksBeforeItEmptiesAFolderInUse) {
  folder_.Write("aus/tief/alt.txt", "alt");
  dialogs_.ExpectQuestion("unwiderruflich gelöscht.\r\n\r\nMöchten Sie wirklich fortfahren?",
                          tools::MessageAnswer::No);
  Run();
  EXPECT_EQ(Out("tief/alt.txt"), "alt");
  EXPECT_FALSE(HasOut("build.log"));
  EXPECT_EQ(status_.summary->outcome, BuildOutcome::OutputFolderInUse);
  EXPECT_EQ(dialogs_.Messages()[0].caption, "Warnung");
  dialogs_.ExpectQuestion("Dateien vorhanden", tools::MessageAnswer::Yes);
  Run();
  EXPECT_FALSE(HasOut("tief"));
  EXPECT_TRUE(HasOut("build.log"));
}

TEST_F(BuildSetupTest, ReusesAnEmptyFolderWithoutAQuestion) {
  folder_.MakeFolder("aus/leer");
  Run();
  EXPECT_TRUE(HasOut("leer"));
  EXPECT_TRUE(HasOut("build.log"));
}

TEST_F(BuildSetupTest, CopiesWrapperAndRuntimeOnRequest) {
  folder_.Write("programm/Wrapper.exe", "W");
  settings_["includeexe"] = "-1";
  settings_["includetessel"] = "2";
  Run();
  EXPECT_EQ(Out("Setup.exe"), "W");
  EXPECT_TRUE(LogLines().starts_with("ERROR: Unable to copy Tessel installer to output folder: "));
}

TEST_F(BuildSetupTest, RefusesTitlesThatLeadOutOfTheOutputFolder) {
  for (const char* title : {"../x", "a\\b", "..", "a\tb"}) {
    product_.Project().SetProductTitle(title);
    EXPECT_THROW(Run(), tools::Error) << title;
  }
  EXPECT_FALSE(folder_.Holds("aus"));
  EXPECT_EQ(dialogs_.OpenNotices(), 0U);
  product_.Project().SetProductTitle("Größe? 100 %");
  if (tools::kPathSeparator == '/') Run();
}

TEST_F(BuildSetupTest, RefusesAVersionTextThatLeadsOutOfTheProduct) {
  product_.Project().WriteProductSetting("Versions", "Ver1", "../..");
  EXPECT_THROW(Run(), tools::Error);
  EXPECT_FALSE(folder_.Holds("aus"));
}

TEST_F(BuildSetupTest, GoesByTheSourcesItFoundAtFirst) {
  const model::ICFile vanishing = Source("1/weg.txt", "w");
  const model::ICFile growing = Source("1/waechst.txt", "kurz");
  const model::ICFile turning = Source("1/ordner.txt", "o");
  model::ICFile scan = TestProduct::Scan(folder_.Path("quelle/1"), "*");
  scan.TargetFolder = 38;
  product_.AddComponent("A", {vanishing, growing, turning, scan});
  status_.onProgress = [this](const tools::Progress& progress) {
    if (progress.filesDone > 0 || !folder_.Holds("quelle/1/weg.txt")) return;
    EXPECT_EQ(progress.filesTotal, 6U);
    tools::DeleteFile(folder_.Path("quelle/1/weg.txt"));
    tools::DeleteFile(folder_.Path("quelle/1/ordner.txt"));
    folder_.MakeFolder("quelle/1/ordner.txt");
    folder_.Write("quelle/1/waechst.txt", std::string(300000, 'x'));
    folder_.Write("quelle/1/neu.txt", "neu");
  };
  Run();
  EXPECT_EQ(Out("InstallPath/waechst.txt").size(), 300000U);
  EXPECT_FALSE(HasOut("ProgramFiles/neu.txt"));
  EXPECT_EQ(status_.summary->errors, 4);
  EXPECT_EQ(status_.summary->files, 2U);
  const std::string script = ScriptLines();
  EXPECT_EQ(script.find("weg.txt"), std::string::npos);
  EXPECT_EQ(script.find("neu.txt"), std::string::npos);
  EXPECT_EQ(status_.reports.back().filesDone, 6U);
}

TEST_F(BuildSetupTest, StoresUnusualAndLongNames) {
  const std::string longName = std::string(251, 'n') + ".txt";
  std::string deep = "tief";
  while (folder_.Path("quelle/" + deep).size() < 500) deep += "/Ordner 資料夾 Größe";
  const model::ICFile file = Source(deep + "/Übergrößen  測試.txt", "tief");
  product_.AddComponent("Ä \"測試\"", {Source(longName, "lang"), file});
  Run();
  EXPECT_EQ(LogLines(), "");
  EXPECT_EQ(Out("InstallPath/" + longName), "lang");
  EXPECT_EQ(Out("InstallPath/Übergrößen  測試.txt"), "tief");
  EXPECT_NE(ScriptLines().find("%InstallPath%\\Übergrößen  測試.txt"), std::string::npos);
}

TEST_F(BuildSetupTest, RaisesAFailureToWriteTheScript) {
  FaultyDisk full(disk_);
  full.FailAt(FaultyDisk::Step::Write, 1);
  try {
    Run(full);
    FAIL() << "no error";
  } catch (const tools::Error& error) {
    EXPECT_TRUE(tools::IsDiskFull(error.Cause()));
  }
  EXPECT_FALSE(HasOut("Probe.install"));
  EXPECT_FALSE(status_.summary.has_value());
  EXPECT_EQ(dialogs_.OpenNotices(), 0U);
}

TEST_F(BuildSetupTest, EndsOnAnAbsurdCountOfFiles) {
  product_.AddComponent("A", {Source("a.txt", "a"), Source("b.txt", "b")});
  product_.Project().WriteComponentSetting(1, 1, "Files", "Count", "2147483647");
  product_.AddComponent("B", {});
  product_.Project().WriteComponentSetting(1, 2, "Files", "Count", "2147483648");
  Run();
  EXPECT_EQ(Out("InstallPath/b.txt"), "b");
  EXPECT_EQ(status_.summary->errors, 2);
}

}  // namespace
}  // namespace build
