// Packaged builds, with the temporary folder watched.
#include <stdlib.h>

#include <filesystem>
#include <map>
#include <thread>

#include "tests/support/BuildFixture.h"
#include "tests/support/FaultyDisk.h"
#include "tests/support/ZipReader.h"
#include "tools/Files.h"
#include "tools/Text.h"

namespace build {

using testing::HasSubstr;
using Members = std::map<std::string, std::string>;

class ArchiveBuildTest : public tests::BuildFixture {
 protected:
  ArchiveBuildTest() {
    settings_["makezip"] = "1";
    ::setenv("TMPDIR", folder_.MakeFolder("tmp").c_str(), 1);
  }
  ~ArchiveBuildTest() override {
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path("tmp"))) << "temporary files stay";
    ::unsetenv("TMPDIR");
  }

  [[nodiscard]] Members Archive() {
    Members members;
    for (const auto& entry : tests::ReadZip(Out("Probe.zip"))) {
      EXPECT_TRUE(members.emplace(entry.name, entry.content).second);
    }
    return members;
  }
};

TEST_F(ArchiveBuildTest, NumbersFilesAcrossComponentsAndGivesTheSameBytesAgain) {
  const std::string large(9'000'000, 'a');
  product_.AddComponent("A", {Source("1/readme.txt", large, "TargetFolder=38\nTargetName=l.txt\n"),
                              Source("2/ohne", "")});
  product_.AddComponent("B", {tests::TestProduct::Scan(folder_.Path("quelle/3"), "*.*")});
  folder_.Write("quelle/3/b/readme.txt", "drei");
  folder_.Write("quelle/3/Ärger.DLL", "zwei");
  Run();
  EXPECT_TRUE(Archive() ==
              (Members{{"1.txt", large}, {"2.", ""}, {"3.DLL", "zwei"}, {"4.txt", "drei"}}));
  EXPECT_EQ(LogLines(), "");
  const std::string script = Out("Probe.install");
  EXPECT_THAT(script, HasSubstr(tools::ReplaceAll(R"S('Install files for "A"
If Extract("%SrcPath%\Probe.zip", "1.txt", "%TempPath%\1.txt") Then
If Not Add("%TempPath%\1.txt", "%ProgramFiles%\l.txt") Then
ErrMsg "Eine Datei konnte nicht installiert werden (%ProgramFiles%\l.txt)", "Fehler"
CancelInstall "Fehler beim Installieren von Dateien"
Else
End If
Del "%TempPath%\1.txt"
End If
If Extract()S",
                                                  "\n", "\r\n")));
  EXPECT_THAT(script, HasSubstr("%TempPath%\\4.txt\", \"%InstallPath%\\readme.txt"));
  EXPECT_EQ(tools::FindFiles(folder_.Path("aus"), "*", true).size(), 3U);
  EXPECT_EQ(summary_->files, 4U);
  EXPECT_EQ(summary_->bytesIn, 9'000'008U);
  EXPECT_EQ(summary_->bytesOut, Out("Probe.zip").size());
  EXPECT_EQ(progress_.filesDone, 4U);

  settings_["folder"] = folder_.Path("aus2");
  Run();
  EXPECT_TRUE(folder_.Read("aus2/Probe.zip") == Out("Probe.zip"));
  EXPECT_EQ(folder_.Read("aus2/Probe.install"), script);
}

TEST_F(ArchiveBuildTest, LeavesOutWhatVanishedAndTakesWhatIsThere) {
  product_.AddComponent("A", {Source("weg", "w"), Source("schrumpft", std::string(500'000, 's')),
                              Source("bleibt", "b")});
  onProgress_ = [this](const tools::Progress& progress) {
    if (progress.filesTotal == 0 || progress.filesDone > 0) return;
    tools::DeleteFile(folder_.Path("quelle/weg"));
    folder_.Write("quelle/schrumpft", "s");
  };
  Run();
  EXPECT_EQ(Archive(), (Members{{"2.", "s"}, {"3.", "b"}}));
  EXPECT_THAT(LogLines(), testing::StartsWith("ERROR: Unable to copy file '" +
                                              folder_.Path("quelle/weg") + "' to temp folder: "));
  EXPECT_THAT(Out("Probe.install"), testing::Not(HasSubstr("\"1.\"")));
}

TEST_F(ArchiveBuildTest, SurvivesAnArchiveThatFillsTheDisk) {
  product_.AddComponent("A", {Source("a.txt", "a"), Source("b.txt", "b")});
  tests::FaultyDisk full(disk_);
  full.FailAt(tests::FaultyDisk::Step::Write, 1);
  // The archive's remains are gone when its failure is told, and there is room again.
  onProgress_ = [&](const tools::Progress& progress) {
    if (progress.filesDone == 2) full.FailAt(tests::FaultyDisk::Step::Write, 0);
  };
  Run(full);
  EXPECT_EQ(LogLines(), "ERROR: Unable to compress setup files\r\n");
  EXPECT_THAT(messages_.at(0).detail, HasSubstr("Kein Speicherplatz mehr"));
  EXPECT_TRUE(summary_->diskFull);
  EXPECT_EQ(summary_->files, 0U);
  EXPECT_FALSE(HasOut("Probe.zip"));
  EXPECT_THAT(Out("Probe.install"), HasSubstr("2.txt"));
}

TEST_F(ArchiveBuildTest, LeavesNothingBehindWhenStopped) {
  product_.AddComponent("A", {Source("a.txt", "a"), Source("b", "b")});
  for (const std::uint64_t bytes : {0U, 1U}) {
    onProgress_ = [bytes](const tools::Progress& progress) {
      if (progress.filesTotal > 0 && progress.bytesDone >= bytes) throw tools::Error("genug");
      // The next report is not held back for coming too soon.
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
    };
    EXPECT_EQ(tests::ErrorOf([&] { Run(); }), "genug");
    EXPECT_TRUE(tools::FindFiles(folder_.Path("aus"), "*", true).empty());
    EXPECT_TRUE(messages_.empty());
    EXPECT_EQ(dialogs_.OpenNotices(), 0U);
  }
}

TEST_F(ArchiveBuildTest, AWishToStopDuringTheSurveyKeepsTheOldSetup) {
  folder_.Write("aus/alt.zip", "alt");
  onProgress_ = [](const tools::Progress&) { throw tools::Error("genug"); };
  EXPECT_THROW(Run(), tools::Error);
  EXPECT_EQ(Out("alt.zip"), "alt");
}

TEST_F(ArchiveBuildTest, RefusesAFolderThatALinkedSourceLiesIn) {
  folder_.Write("echt/a.txt", "a");
  folder_.MakeFolder("quelle");
  std::filesystem::create_symlink(folder_.Path("echt/a.txt"), folder_.Path("quelle/a.txt"));
  product_.AddComponent("A", {tests::TestProduct::File(folder_.Path("quelle/a.txt"))});
  settings_["folder"] = folder_.Path("echt");
  Run();
  EXPECT_EQ(summary_->outcome, BuildOutcome::InvalidOutputFolder);
  EXPECT_EQ(folder_.Read("echt/a.txt"), "a");
}

}  // namespace build
