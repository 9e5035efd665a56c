#include "engine/Build.h"
#include "engine/OutputContent.h"
#include "tests/support/BuildFixture.h"
#include "tools/files/FileInformation.h"
#include "tools/files/FolderLock.h"
#include "tools/files/TemporaryFiles.h"

namespace engine {

using tests::TestProduct;

class BuildTest : public tests::BuildFixture {};

// An entry with every line that depends on a flag, and one without.
constexpr const char* kScript = R"S(' QUILLON PACKWRIGHT INSTALLATION SCRIPT FOR TESSEL
' Copyright (C) 2031 by Änne Müller
' Created with Quillon Packwright 1.2.3

Sub InstallMain()
'Display a message allowing the user to cancel installation
If Ask("Die Installation von Probe kann jetzt durchgeführt werden. Möchten Sie fortfahren?") = False Then
	CancelInstall "Abbruch durch Benutzer", True
End If

'Register the program with Tessel if it's not already known
SetAppKey " ", "Katalog"
RegPrd " ", "Katalog", 4

'Allow the user to select installation folder
SelectInstallFolder PathStr("%ProgramFiles%\Probe")

'Install files for "Programm"
If Not Copy("%SrcPath%\ProgramFiles\a\b\c\start.dat", "%ProgramFiles%\a\b/c\anders.dat") Then
ErrMsg "Eine Datei konnte nicht installiert werden (%ProgramFiles%\a\b/c\anders.dat)", "Fehler"
CancelInstall "Fehler beim Installieren von Dateien"
Else
'TO-DO: Register path for this file...
'Self-register this file
SelfReg "%ProgramFiles%\a\b/c\anders.dat"
End If

'Install files for "Hilfe"
If Not Add("%SrcPath%\CUSTOM\D_\Ziel\lies mich.txt", "D_\Ziel\lies mich.txt") Then
ErrMsg "Eine Datei konnte nicht installiert werden (D_\Ziel\lies mich.txt)", "Fehler"
Else
End If

End Sub

'--- End of installation script ---
)S";

TEST_F(BuildTest, MakesATreeOfDestinationFolders) {
  project_.WriteVersionSetting(1, "Tessel", "Key", " ");
  project_.WriteVersionSetting(1, "Tessel", "Title", "Katalog");
  project_.WriteVersionSetting(1, "Tessel", "Type", "4");
  const std::string source = folder_.Write("Produkt/dateien/ü/start.dat", "MZ");
  folder_.Write("Produkt/hilfe/lies mich.txt", "Hallo");
  product_.AddComponent("Programm",
                        {"SourcePath=dateien\\ü\nSourceName=start.dat\nTargetFolder=38\n"
                         "TargetSubFolder=a\\b/c\nTargetName=anders.dat\nOverwrite=1\n"
                         "RegisterPath=1\nSelfRegisterDLL=1\nVital=-1\nPermanent=99999\n"
                         "IncludeChildren=99999\n"});
  product_.AddComponent("", {});
  product_.AddComponent("Hilfe", {"Type=2\nSourcePath=hilfe/\nSourceName=*.TXT\nTargetFolder=2004\n"
                                  "TargetSubFolder=D_\\Ziel\nVital=0\nRegisterPath=2\n"});
  Run();
  const std::string target = "ProgramFiles/a/b/c/start.dat";
  EXPECT_EQ(Out(target), "MZ");
  EXPECT_EQ(Out("CUSTOM/D_/Ziel/lies mich.txt"), "Hallo");
  EXPECT_EQ(tools::InformationOf(folder_.Path("aus/" + target)).dateTime,
            tools::InformationOf(source).dateTime);
  EXPECT_EQ(Out("Probe.install"), tools::ReplaceAll(kScript, "\n", "\r\n"));
  EXPECT_EQ(LogLines(), "");
  EXPECT_EQ(summary_->outcome, BuildOutcome::Finished);
  EXPECT_EQ(summary_->stored.files, 2U);
  EXPECT_EQ(summary_->stored.bytesOut, 7U);
  EXPECT_EQ(questions_, 0);
  EXPECT_FALSE(HasOut("Setup.exe"));
}

TEST_F(BuildTest, LogsProblemsInVisitingOrder) {
  folder_.Write("programm/Wrapper.exe", "W");
  options_.includeWrapper = options_.includeRuntime = true;
  const std::string missing = folder_.Path("weg/fehlt.txt");
  product_.AddComponent(
      "A", {TestProduct::File(missing), TestProduct::Scan("quelle\\leer", "*.xyz"),
            Source("b.txt", "b", "TargetSubFolder=..\\..\\draussen\n"),
            TestProduct::File(missing, "Exclude=1\n"), TestProduct::File(missing, "Type=3\n")});
  const std::string twice = Source("c.txt", "c", "Exclude=2\nID={1}\n");
  product_.AddComponent("B", {twice, Source("d.txt", "d", "Vital=99999\n"), twice});
  Run();
  EXPECT_THAT(
      tools::SplitList(tools::ReplaceAll(LogLines(), "\r\n", "\n"), '\n', '\0'),
      ElementsAre("ERROR: File missing: " + missing,
                  "Warning: No files found in 'quelle\\leer' matching '*.xyz'",
                  StartsWith("ERROR: Unable to copy file '" + folder_.Path("quelle/b.txt") +
                             "' to new location: "),
                  "Warning: Entry of type 3 is left out",
                  StartsWith("ERROR: File 2 of component 'B' is left out: "),
                  "Warning: Stored name of '" + folder_.Path("quelle/c.txt") +
                      "' is already recorded under ID '{1}'",
                  StartsWith("ERROR: Unable to copy Tessel installer to output folder: "), ""));
  EXPECT_FALSE(folder_.Holds("draussen"));
  EXPECT_EQ(Out("InstallPath/c.txt"), "c");
  EXPECT_EQ(Out("Setup.exe"), "W");
  EXPECT_FALSE(HasOut("InstallPath/d.txt"));
  EXPECT_EQ(messages_.at(1).severity, Severity::Warning);
  EXPECT_EQ(messages_.at(2).componentTitle, "A");
  EXPECT_EQ(messages_.at(2).entry, 3);
  EXPECT_EQ(summary_->errors, 4);
  EXPECT_EQ(summary_->warnings, 3);
}

TEST_F(BuildTest, AsksBeforeItEmptiesAFolderThatHoldsFiles) {
  folder_.MakeFolder("aus/leer");
  mayEmpty_ = false;
  Run();
  EXPECT_EQ(questions_, 0);
  EXPECT_TRUE(HasOut("leer"));
  folder_.Write("aus/build.log", "alt");
  Run();
  EXPECT_EQ(questions_, 1);
  EXPECT_EQ(Out("build.log"), "alt");
  EXPECT_EQ(summary_->outcome, BuildOutcome::OutputFolderInUse);
}

TEST_F(BuildTest, TellsASetupFromOtherFiles) {
  product_.AddComponent("A", {Source("Größe.txt", "a", "TargetSubFolder=x/../Tief.\n"),
                              Source("b.txt", "b", "TargetFolder=38\n")});
  folder_.Write("programm/Wrapper.exe", "W");
  options_.includeWrapper = true;
  for (const bool packaged : {false, true}) {
    options_.packaged = packaged;
    Run();
    EXPECT_EQ(FirstOtherFile(folder_.Path("aus")), "");
    for (const char* name :
         {"fremd.txt", "InstallPath/Tief/a", "ProgramFiles/c.txt", "Probe2.install", "x/b.txt"}) {
      const std::string path = folder_.Write(std::string("aus/") + name, "");
      EXPECT_EQ(FirstOtherFile(folder_.Path("aus")), path);
      tools::DeleteFile(path);
    }
  }
  folder_.Write("aus/build.log", "Notizen");
  EXPECT_EQ(FirstOtherFile(folder_.Path("aus")), folder_.Path("aus/Probe.install"));
}

TEST_F(BuildTest, HasItsOutputFolderToItself) {
  product_.AddComponent("A", {Source("a.txt", "a")});
  int refused = 0;
  onProgress_ = [&](const tools::Progress&) {
    tools::RemoveLeftovers(folder_.Path("aus"));
    EXPECT_THAT(ErrorOf([&] { const tools::FolderClaim other(folder_.Path("aus")); }),
                AllOf(StartsWith("In den Ordner wird gerade ein anderes Setup geschrieben: "),
                      HasSubstr("(Prozess ")));
    ++refused;
  };
  Run();
  EXPECT_GT(refused, 0);
  EXPECT_EQ(Out("InstallPath/a.txt"), "a");
  EXPECT_NO_THROW(const tools::FolderClaim after(folder_.Path("aus")));
}

TEST_F(BuildTest, KeepsWhatCameIntoTheOutputFolderMeanwhile) {
  product_.AddComponent("A", {Source("a.txt", "a")});
  for (const std::string& before : {std::string(), std::string("aus/alt/x")}) {
    if (!before.empty()) folder_.Write(before, "x");
    onProgress_ = [&](const tools::Progress&) { folder_.Write("aus/alt/neu.txt", "neu"); };
    Run();
    EXPECT_EQ(summary_->outcome, BuildOutcome::OutputFolderStuck);
    EXPECT_EQ(summary_->reason, "Im Ausgabeordner sind inzwischen Dateien entstanden: " +
                                    folder_.Path(before.empty() ? "aus" : "aus/alt/neu.txt"));
    EXPECT_EQ(Out("alt/neu.txt"), "neu");
    EXPECT_EQ(HasOut("alt/x"), !before.empty());
    EXPECT_FALSE(HasOut("build.log"));
    tools::DeleteFile(folder_.Path("aus/alt/neu.txt"));
  }
}

TEST_F(BuildTest, RefusesNamesThatLeadElsewhere) {
  for (const char* title : {"../x", "a\\b", "..", "a\tb"}) {
    project_.SetProductTitle(title);
    EXPECT_THROW(Run(), tools::Error) << title;
  }
  project_.SetProductTitle("Probe");
  project_.WriteProductSetting("Versions", "Ver1", "../..");
  EXPECT_THROW(Run(), tools::Error);
  EXPECT_FALSE(folder_.Holds("aus"));
}

TEST_F(BuildTest, TellsWhichFilesMeetInATree) {
  product_.AddComponent(
      "A", {Source("1/index.html", "eins"), Source("2/INDEX.html", "zwei"),
            Source("3/log.txt", "3", "TargetSubFolder=..\\Build.log\n"),
            Source("3/probe.INSTALL", "3", "TargetSubFolder=..\n"),
            Source("4/x", "vier", "TargetSubFolder=index.HTML\n"), Source("5/Setup.exe", "5"),
            Source("1/index.html", "eins", "TargetFolder=38\nID={anders}\n")});
  Run();
  const auto copy = [this](const std::string& source, const std::string& why) {
    return "ERROR: Unable to copy file '" + folder_.Path("quelle/" + source) +
           "' to new location: " + why;
  };
  const std::string own = "the name belongs to a file that the build makes itself";
  EXPECT_THAT(tools::SplitList(tools::ReplaceAll(LogLines(), "\r\n", "\n"), '\n', '\0'),
              ElementsAre("Warning: File '" + folder_.Path("quelle/2/INDEX.html") + "' replaces '" +
                              folder_.Path("quelle/1/index.html") +
                              "': both are stored as 'InstallPath\\INDEX.html'",
                          copy("3/log.txt", own), copy("3/probe.INSTALL", own),
                          copy("4/x", "a folder of its target is a file already, copied from '" +
                                          folder_.Path("quelle/2/INDEX.html") + "'"),
                          ""));
  EXPECT_EQ(Out("InstallPath/index.html"), "zwei");
  EXPECT_EQ(Out("ProgramFiles/index.html"), "eins");
  EXPECT_THAT(Out("Probe.install"), AllOf(HasSubstr("\\InstallPath\\index.html\", "),
                                          HasSubstr("\\ProgramFiles\\index.html\", ")));
  EXPECT_EQ(tools::FindFiles(folder_.Path("aus"), "*", tools::Subfolders::Search).size(), 5U);
}

TEST_F(BuildTest, AFileThatCouldNotBeStoredTakesNoPlace) {
  product_.AddComponent("A", {Source("1/a.txt", "1"), Source("2/a.txt", "2"),
                              Source("3/A.txt", "3"), Source("4/a.txt", "4")});
  onProgress_ = [this](const tools::Progress& progress) {
    if (progress.filesTotal == 0 || progress.filesDone > 0) return;
    tools::DeleteFile(folder_.Path("quelle/1/a.txt"));
    tools::DeleteFile(folder_.Path("quelle/3/A.txt"));
  };
  Run();
  EXPECT_EQ(summary_->errors, 2);
  ASSERT_EQ(summary_->warnings, 1);
  EXPECT_EQ(messages_.at(2).text, "File '" + folder_.Path("quelle/4/a.txt") + "' replaces '" +
                                      folder_.Path("quelle/2/a.txt") +
                                      "': both are stored as 'InstallPath\\a.txt'");
}

TEST_F(BuildTest, LeavesOutComponentsOfNoUseWithAWord) {
  product_.AddComponent("A", {Source("a.txt", "a")});
  product_.AddComponent("", {Source("b.txt", "b")});
  for (int slot = 3; slot <= 6; ++slot) product_.AddComponent("", {});
  folder_.Write("Produkt/Version 1.0.0/component3.component", std::string(50, '\0'));
  tools::DeleteFile(folder_.Path("Produkt/Version 1.0.0/component4.component"));
  tools::DeleteFile(folder_.Path("Produkt/Version 1.0.0/component5.component"));
  folder_.MakeFolder("Produkt/Version 1.0.0/component5.component");
  Run();
  const std::string none =
      "ERROR: File holds no component: " + folder_.Path("Produkt/Version 1.0.0/component");
  EXPECT_EQ(LogLines(), "Warning: Component 2 is left out: it has files (1) but no title\r\n" +
                            none + "3.component\r\n" + none +
                            "5.component (Der Pfad bezeichnet einen Ordner)\r\n");
  EXPECT_THAT(Out("Probe.install"), Not(HasSubstr("b.txt")));
}

TEST_F(BuildTest, DoesNotBuildAVersionWithoutAUsableFile) {
  const std::string path = folder_.Path(TestProduct::kVersionFile);
  folder_.Write("aus/alt.zip", "alt");
  for (const std::string& content : {std::string(), std::string(20, '\0'), std::string("x=1"),
                                     std::string("[General]\n\0", 11)}) {
    folder_.Write(TestProduct::kVersionFile, content);
    EXPECT_EQ(ErrorOf([&] { Run(); }), "Die Datei der Version ist leer oder beschädigt: " + path);
  }
  product_.AddComponent("A", {Source("a.txt", "a")});
  folder_.Write(TestProduct::kVersionFile, "[General]\nCreated=x\n");
  EXPECT_EQ(ErrorOf([&] { Run(); }),
            "Die Anzahl der Komponenten fehlt: " + path + " ([Components] Count)");
  tools::DeleteFile(path);
  EXPECT_EQ(ErrorOf([&] { Run(); }), "Die Datei der Version fehlt: " + path);
  EXPECT_EQ(Out("alt.zip"), "alt");
}

TEST_F(BuildTest, TellsOfAComponentWhoseEntriesCannotBeCounted) {
  const std::string entry = "[File1]\n" + Source("a.txt", "a");
  product_.AddComponent("A", {entry});
  for (const std::string& files :
       {std::string("[Files]\nCount=-1\n"), std::string("[Files]\nCount=xyz\n"),
        std::string("[Files]\nCount=\n"), std::string(), std::string("[Files]\nCount=2147483648\n"),
        std::string("[Files]\nCount=1\n\0", 17)}) {
    folder_.Write(TestProduct::kComponentFile, "[Component]\nTitle=A\n" + files + entry);
    Run();
    EXPECT_EQ(summary_->errors, 1) << files;
  }
}

TEST_F(BuildTest, ScansPassOverTheOutputFolder) {
  options_.folder = "Ausgabe\\Debug";
  product_.AddComponent("A", {"ID={1}\nType=2\nSourcePath=.\nSourceName=*\n"
                              "IncludeChildren=1\nTargetFolder=2001\n"});
  for (int run = 1; run <= 2; ++run) {
    Run();
    EXPECT_EQ(summary_->outcome, BuildOutcome::Finished) << summary_->reason;
    EXPECT_EQ(summary_->stored.files, 3U);
    EXPECT_TRUE(messages_.empty());
  }
}

TEST_F(BuildTest, TellsWhatItHasFoundWhileItLooks) {
  product_.AddComponent("A",
                        {Source("x", "12"), TestProduct::Scan(folder_.Path("quelle/s"), "*.b")});
  for (const char* name : {"a", "1.b", "2.b"})
    folder_.Write("quelle/s/" + std::string(name), "345");
  Run();
  std::vector<std::pair<std::uint64_t, std::uint64_t>> found;
  for (const tools::Progress& report : found_) {
    const std::pair now(report.filesDone, report.bytesDone);
    if (found.empty() || found.back() != now) found.push_back(now);
  }
  using Found = std::pair<std::uint64_t, std::uint64_t>;  // files and bytes
  EXPECT_THAT(found, ElementsAre(Found(0, 0), Found(1, 0), Found(1, 2), Found(2, 2), Found(3, 2),
                                 Found(4, 2), Found(3, 2), Found(3, 5)));
}

TEST_F(BuildTest, GoesByTheSourcesItFoundAtFirst) {
  const std::string scan = "TargetFolder=38\n" + TestProduct::Scan(folder_.Path("quelle/1"), "*");
  product_.AddComponent("A", {Source("1/weg.txt", "w"), Source("1/waechst.txt", "kurz"),
                              Source("1/ordner.txt", "o"), scan});
  onProgress_ = [this](const tools::Progress& progress) {
    if (progress.filesTotal == 0 || progress.filesDone > 0 || !folder_.Holds("quelle/1/weg.txt"))
      return;
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
  EXPECT_EQ(summary_->errors, 4);
  EXPECT_EQ(summary_->stored.files, 2U);
  EXPECT_EQ(progress_.filesDone, 6U);
  EXPECT_THAT(Out("Probe.install"), AllOf(Not(HasSubstr("weg.txt")), Not(HasSubstr("neu.txt"))));
}

}  // namespace engine
