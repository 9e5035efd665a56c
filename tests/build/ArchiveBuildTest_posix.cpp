// Packaged builds, read back by an independent reader of archives.
#include <archive.h>
#include <archive_entry.h>

#include <cstdlib>
#include <map>
#include <memory>
#include <thread>

#include "tests/support/BuildFixture.h"
#include "tests/support/FaultyDisk.h"
#include "tools/Error.h"
#include "tools/Files.h"

namespace build {
namespace {

using Members = std::map<std::string, std::string>;

Members ReadArchive(const std::string& path) {
  const std::unique_ptr<archive, int (*)(archive*)> reader(archive_read_new(), archive_read_free);
  archive_read_support_format_zip(reader.get());
  EXPECT_EQ(archive_read_open_filename(reader.get(), path.c_str(), 65536), ARCHIVE_OK);
  Members members;
  archive_entry* entry = nullptr;
  int result = ARCHIVE_OK;
  while ((result = archive_read_next_header(reader.get(), &entry)) == ARCHIVE_OK) {
    std::string content(static_cast<std::size_t>(archive_entry_size(entry)), '\0');
    EXPECT_EQ(archive_read_data(reader.get(), content.data(), content.size()),
              static_cast<la_ssize_t>(content.size()));
    EXPECT_TRUE(members.emplace(archive_entry_pathname_utf8(entry), content).second);
  }
  EXPECT_EQ(result, ARCHIVE_EOF) << archive_error_string(reader.get());
  return members;
}

class ArchiveBuildTest : public tests::BuildFixture {
 protected:
  ArchiveBuildTest() {
    settings_["makezip"] = "1";
    ::setenv("TMPDIR", folder_.MakeFolder("tmp").c_str(), 1);
  }
  ~ArchiveBuildTest() override { ::unsetenv("TMPDIR"); }

  [[nodiscard]] Members Archive() { return ReadArchive(folder_.Path("aus/Probe.zip")); }
  [[nodiscard]] bool TemporaryFilesAreGone() {
    return std::filesystem::is_empty(folder_.Path("tmp"));
  }
};

TEST_F(ArchiveBuildTest, NumbersFilesAcrossComponents) {
  model::ICFile single = Source("1/readme.txt", "eins");
  single.TargetFolder = 38;
  single.TargetName = "lies.txt";
  product_.AddComponent("A", {single, Source("2/ohne", "")});
  product_.AddComponent("B", {tests::TestProduct::Scan(folder_.Path("quelle/3"), "*.*")});
  folder_.Write("quelle/3/b/readme.txt", "drei");
  folder_.Write("quelle/3/Ärger.DLL", "zwei");
  Run();
  EXPECT_EQ(Archive(),
            (Members{{"1.txt", "eins"}, {"2.", ""}, {"3.DLL", "zwei"}, {"4.txt", "drei"}}));
  EXPECT_EQ(LogLines(), "");
  const std::string script = ScriptLines();
  EXPECT_NE(script.find(R"S(If Extract("%SrcPath%\Probe.zip", "1.txt", "%TempPath%\1.txt") Then
If Not Add("%TempPath%\1.txt", "%ProgramFiles%\lies.txt") Then
)S"),
            std::string::npos)
      << script;
  EXPECT_NE(script.find("Add(\"%TempPath%\\4.txt\", \"%InstallPath%\\readme.txt\")"),
            std::string::npos);
  EXPECT_EQ(tools::FindFiles(folder_.Path("aus"), "*", true).size(), 3U);
  EXPECT_EQ(status_.summary->files, 4U);
  EXPECT_EQ(status_.summary->bytesIn, 12U);
  EXPECT_EQ(status_.summary->bytesOut, Out("Probe.zip").size());
  EXPECT_EQ(status_.reports.back().filesDone, 4U);
  EXPECT_TRUE(TemporaryFilesAreGone());
}

TEST_F(ArchiveBuildTest, GivesTheSameBytesAgain) {
  product_.AddComponent("A", {Source("a.txt", std::string(9'000'000, 'a')), Source("b", "b")});
  Run();
  const std::string archive = Out("Probe.zip");
  const std::string script = Out("Probe.install");
  settings_["folder"] = folder_.Path("aus2");
  Run();
  EXPECT_TRUE(folder_.Read("aus2/Probe.zip") == archive);
  EXPECT_EQ(folder_.Read("aus2/Probe.install"), script);
}

TEST_F(ArchiveBuildTest, LeavesOutWhatVanishedAndTakesWhatIsThere) {
  product_.AddComponent("A", {Source("weg", "w"), Source("schrumpft", std::string(500'000, 's')),
                              Source("bleibt", "b")});
  status_.onProgress = [this](const tools::Progress& progress) {
    if (progress.filesDone > 0) return;
    tools::DeleteFile(folder_.Path("quelle/weg"));
    folder_.Write("quelle/schrumpft", "s");
  };
  Run();
  EXPECT_EQ(Archive(), (Members{{"2.", "s"}, {"3.", "b"}}));
  EXPECT_TRUE(LogLines().starts_with("ERROR: Unable to copy file '" + folder_.Path("quelle/weg") +
                                     "' to temp folder: "));
  EXPECT_EQ(ScriptLines().find("\"1.\""), std::string::npos);
}

TEST_F(ArchiveBuildTest, SurvivesAnArchiveThatCannotBeMade) {
  product_.AddComponent("A", {Source("a.txt", "a")});
  status_.onProgress = [this](const tools::Progress& progress) {
    const bool prepared = folder_.Holds("aus");
    if (prepared && progress.filesDone == 0) folder_.Write("aus/Probe.zip/im Weg", "");
  };
  Run();
  EXPECT_EQ(LogLines(), "ERROR: Unable to compress setup files\r\n");
  ASSERT_EQ(status_.messages.size(), 1U);
  EXPECT_NE(status_.messages[0].detail.find("Probe.zip"), std::string::npos);
  EXPECT_NE(ScriptLines().find("1.txt"), std::string::npos);
  EXPECT_EQ(status_.summary->files, 0U);
  EXPECT_TRUE(TemporaryFilesAreGone());
}

TEST_F(ArchiveBuildTest, TellsWhenTheArchiveFilledTheDisk) {
  product_.AddComponent("A", {Source("a.txt", "a"), Source("b.txt", "b")});
  tests::FaultyDisk full(disk_);
  full.FailAt(tests::FaultyDisk::Step::Write, 1);
  // The archive's remains are gone when its failure is told, and there is room again.
  status_.onProgress = [&](const tools::Progress& progress) {
    if (progress.filesDone == 2) full.FailAt(tests::FaultyDisk::Step::Write, 0);
  };
  Run(full);
  EXPECT_EQ(LogLines(), "ERROR: Unable to compress setup files\r\n");
  EXPECT_TRUE(status_.summary->diskFull);
  EXPECT_FALSE(HasOut("Probe.zip"));
}

TEST_F(ArchiveBuildTest, LeavesNothingBehindWhenStopped) {
  product_.AddComponent("A", {Source("a.txt", "a"), Source("b", "b")});
  for (const std::uint64_t bytes : {0U, 1U}) {
    status_.onProgress = [bytes](const tools::Progress& progress) {
      if (progress.bytesDone >= bytes) throw tools::Error("genug");
      // The next report is not held back for coming too soon.
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
    };
    try {
      Run();
      FAIL() << "no error";
    } catch (const tools::Error& error) {
      EXPECT_STREQ(error.what(), "genug");
    }
    EXPECT_TRUE(tools::FindFiles(folder_.Path("aus"), "*", true).empty());
    EXPECT_TRUE(TemporaryFilesAreGone());
    EXPECT_TRUE(status_.messages.empty());
    EXPECT_EQ(dialogs_.OpenNotices(), 0U);
  }
}

TEST_F(ArchiveBuildTest, AWishToStopDuringTheSurveyKeepsTheOldSetup) {
  product_.AddComponent("A", {Source("a.txt", "a")});
  folder_.Write("aus/alt.zip", "alt");
  status_.onProgress = [](const tools::Progress&) { throw tools::Error("genug"); };
  EXPECT_THROW(Run(), tools::Error);
  EXPECT_EQ(folder_.Read("aus/alt.zip"), "alt");
}

TEST_F(ArchiveBuildTest, RefusesAFolderThatALinkedSourceLiesIn) {
  folder_.Write("echt/a.txt", "a");
  folder_.MakeFolder("quelle");
  std::filesystem::create_symlink(folder_.Path("echt/a.txt"), folder_.Path("quelle/a.txt"));
  product_.AddComponent("A", {tests::TestProduct::File(folder_.Path("quelle/a.txt"))});
  settings_["folder"] = folder_.Path("echt");
  Run();
  EXPECT_EQ(status_.summary->outcome, BuildOutcome::InvalidOutputFolder);
  EXPECT_EQ(folder_.Read("echt/a.txt"), "a");
}

}  // namespace
}  // namespace build
