// Packaged builds, with the temporary folder watched.
#include <sched.h>
#include <stdlib.h>
#include <sys/mount.h>

#include <map>

#include "engine/BuildCheck.h"
#include "engine/OutputContent.h"
#include "tests/support/BuildFixture.h"
#include "tests/support/ZipReader.h"

namespace engine {

using Members = std::map<std::string, std::string>;

class ArchiveBuildTest : public tests::BuildFixture {
 protected:
  ArchiveBuildTest() {
    options_.packaged = true;
    ::setenv("TMPDIR", folder_.MakeFolder("tmp").c_str(), 1);
  }
  ~ArchiveBuildTest() override {
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path("tmp"))) << "temporary files stay";
    ::unsetenv("TMPDIR");
  }

  /// Every file in the output folder, hidden ones too, as "name=content" lines.
  [[nodiscard]] std::string Contents() {
    std::string contents;
    for (const std::string& path :
         tools::FindFiles(folder_.Path("aus"), "*", tools::Subfolders::Search)) {
      const std::string name = path.substr(folder_.Path("aus/").size());
      contents += name + "=" + Out(name) + "\n";
    }
    return contents;
  }

  /// Has the disk not move one thing, or nothing more from there on.
  enum class NotMoved { One, AllFrom };
  void Pin(NotMoved what, const std::string& ending) {
    disk_.onStep = [=, isBroken = false](const FaultyDisk::Taken& taken) mutable {
      if (taken.step != FaultyDisk::Step::Replace) return;
      const bool isPinned = taken.path.ends_with(ending) || taken.other.ends_with(ending);
      isBroken = isBroken || (isPinned && what == NotMoved::AllFrom);
      if (!isPinned && !isBroken) return;
      throw tools::PathError("", taken.other,
                             std::make_error_code(std::errc::device_or_resource_busy));
    };
  }

  [[nodiscard]] Members Archive() {
    Members members;
    for (const auto& entry : tests::ReadZip(Out("Probe.zip"))) {
      EXPECT_TRUE(members.emplace(entry.name, entry.content).second);
    }
    return members;
  }
};

TEST_F(ArchiveBuildTest, GivesTheSameBytesAgain) {
  const std::string large(9'000'000, 'a');
  product_.AddComponent(
      "A", {Source("1/readme.txt", large, "TargetFolder=38\nTargetName=l.txt\nVital=2\n"),
            Source("2/ohne", "", "TargetFolder=0\n")});
  product_.AddComponent(
      "B", {"IncludeChildren=2\n" + tests::TestProduct::Scan(folder_.Path("quelle/3"), "*.*")});
  project_.WriteVersionSetting(1, "Tessel", "Key", "k");
  folder_.Write("quelle/3/b/readme.txt", "drei");
  folder_.Write("quelle/3/Ärger.DLL", "zwei");
  folder_.Write("quelle/3/c/11.|Windows|a:%x%.ö_1", "");
  folder_.Write("quelle/3/c/12.|Windows|a:%x%", "");
  Run();
  EXPECT_TRUE(Archive() == (Members{{"1.txt", large},
                                    {"2.", ""},
                                    {"3.DLL", "zwei"},
                                    {"4.txt", "drei"},
                                    {"5.ö_1", ""},
                                    {"6._Windows_a__x_", ""}}));
  EXPECT_EQ(LogLines(), "");
  const std::string script = Out("Probe.install");
  EXPECT_THAT(
      script,
      HasSubstr("If Extract(\"%SrcPath%\\Probe.zip\", \"1.txt\", \"%TempPath%\\1.txt\") Then\r\n"
                "If Not Add(\"%TempPath%\\1.txt\", \"%ProgramFiles%\\l.txt\") Then\r\n"));
  EXPECT_THAT(script, HasSubstr("\r\nDel \"%TempPath%\\1.txt\"\r\nEnd If\r\n"));
  EXPECT_THAT(script, HasSubstr("%TempPath%\\2.\", \"\\ohne\""));
  EXPECT_THAT(script, HasSubstr("RegPrd \"k\", \"Probe\", 1\r\n"));
  EXPECT_THAT(script, HasSubstr("%TempPath%\\4.txt\", \"%InstallPath%\\readme.txt"));
  EXPECT_EQ(tools::FindFiles(folder_.Path("aus"), "*", tools::Subfolders::Search).size(), 3U);
  EXPECT_EQ(summary_->stored.files, 6U);
  EXPECT_EQ(summary_->stored.bytesIn, 9'000'008U);
  EXPECT_EQ(summary_->stored.bytesOut, Out("Probe.zip").size());
  EXPECT_EQ(progress_.filesDone, 6U);

  options_.folder = folder_.Path("aus2");
  Run();
  EXPECT_TRUE(folder_.Read("aus2/Probe.zip") == Out("Probe.zip"));
  EXPECT_EQ(folder_.Read("aus2/Probe.install"), script);

  // On top of the setup that is there, and of one of another kind.
  using enum Compression;
  for (const auto& [compression, isFresh, takenOver] : {std::tuple(Normal, false, 6U),
                                                        {Normal, true, 0U},
                                                        {Fast, false, 0U},
                                                        {Fast, false, 6U},
                                                        {Normal, false, 0U}}) {
    options_.compression = compression;
    options_.isFresh = isFresh;
    Run();
    EXPECT_EQ(folder_.Read("aus2/Probe.zip") == Out("Probe.zip"), compression == Normal);
    EXPECT_EQ(summary_->stored.filesTakenOver, takenOver);
    EXPECT_EQ(summary_->stored.bytesTakenOver, takenOver == 0 ? 0 : summary_->stored.bytesIn);
  }
  const BuildTimes& times = summary_->times;
  EXPECT_GT(times.packing, BuildTimes::Seconds());
  EXPECT_LE(times.survey + times.packing + times.script, times.total);
}

TEST_F(ArchiveBuildTest, WritesNothingWhereALinkLeadsThatTookTheOutputFoldersPlace) {
  folder_.Write("aus/alt", "x");
  folder_.MakeFolder("fremd");
  onQuestion_ = [this] {
    std::filesystem::rename(folder_.Path("aus"), folder_.Path("weg"));
    std::filesystem::create_symlink("fremd", folder_.Path("aus"));
  };
  EXPECT_THAT(ErrorOf([&] { Run(); }), HasSubstr(folder_.Path("aus")));
  EXPECT_TRUE(std::filesystem::is_empty(folder_.Path("fremd")));
}

TEST_F(ArchiveBuildTest, ALogLargerThanMemoryIsNoSetups) {
  const std::string log = folder_.Write("aus/build.log", "");
  std::filesystem::resize_file(log, std::uintmax_t{1} << 40U);
  EXPECT_EQ(FirstOtherFile(folder_.Path("aus")), log);
}

TEST_F(ArchiveBuildTest, LeavesOutWhatVanished) {
  product_.AddComponent("A", {Source("weg", "w"), Source("schrumpft", std::string(500'000, 's')),
                              Source("bleibt", "b")});
  onProgress_ = [this](const tools::Progress& progress) {
    if (progress.filesTotal == 0 || progress.filesDone > 0) return;
    tools::DeleteFile(folder_.Path("quelle/weg"));
    folder_.Write("quelle/schrumpft", "s");
  };
  Run();
  EXPECT_EQ(Archive(), (Members{{"2.", "s"}, {"3.", "b"}}));
  EXPECT_THAT(LogLines(), StartsWith("ERROR: Unable to copy file '" + folder_.Path("quelle/weg") +
                                     "' to temp folder: "));
  EXPECT_THAT(Out("Probe.install"), Not(HasSubstr("\"1.\"")));
}

TEST_F(ArchiveBuildTest, AnArchiveThatFillsTheDiskReplacesNoOlderSetup) {
  product_.AddComponent("A", {Source("a.txt", "a"), Source("b.txt", "b")});
  // The archive's remains are gone when its failure is told, and there is room again.
  onProgress_ = [&](const tools::Progress& progress) {
    disk_.FailAt(FaultyDisk::Step::Write, progress.filesDone == 2 ? 0 : 1);
  };
  Run();
  EXPECT_EQ(LogLines(), "ERROR: Unable to compress setup files\r\n");
  EXPECT_THAT(messages_.at(0).detail, HasSubstr("Kein Speicherplatz mehr"));
  EXPECT_TRUE(summary_->diskFull);
  EXPECT_EQ(summary_->stored.files, 0U);
  EXPECT_FALSE(HasOut("Probe.zip"));
  EXPECT_THAT(Out("Probe.install"), HasSubstr("2.txt"));
  const std::string before = Contents();
  Run();
  EXPECT_EQ(summary_->outcome, BuildOutcome::Incomplete);
  EXPECT_EQ(Contents(), before);
}

// Whenever a build stops, the output folder is as it was.
TEST_F(ArchiveBuildTest, LeavesEverythingAsItWasWhenStopped) {
  product_.AddComponent("A", {Source("a.txt", "a"), Source("b", "b")});
  folder_.Write("aus/Probe.zip", "alt");
  for (const bool packaged : {false, true}) {
    options_.packaged = packaged;
    for (const int phase : {0, 1, 2, 3}) {
      SCOPED_TRACE(testing::Message() << packaged << phase);
      isStopWanted_ = phase == 0;
      onProgress_ = [&](const tools::Progress& progress) {
        isStopWanted_ = progress.filesDone + 1 >= static_cast<unsigned>(phase);
      };
      Run();
      EXPECT_EQ(summary_->outcome, BuildOutcome::Stopped);
      EXPECT_EQ(Contents(), "Probe.zip=alt\n");
      EXPECT_TRUE(messages_.empty());
    }
  }
}

TEST_F(ArchiveBuildTest, PutsTheOldSetupBackWhenTheNewOneCannotMoveIn) {
  product_.AddComponent("A", {Source("a.txt", "a")});
  folder_.Write("aus/Probe.install", "alt");
  folder_.Write("aus/alter Ordner/x", "x");
  std::filesystem::create_symlink(folder_.Path("quelle"), folder_.Path("aus/Verweis"));
  const std::string before = Contents();
  for (const char* pinned : {"aus/alter Ordner", "aus/Probe.zip", "aus/build.log"}) {
    Pin(NotMoved::One, pinned);
    Run();
    EXPECT_EQ(summary_->outcome, BuildOutcome::OutputFolderStuck);
    EXPECT_EQ(summary_->reason,
              "Der Inhalt des Ausgabeordners kann nicht ersetzt werden: " + folder_.Path(pinned) +
                  " (Wird von einem anderen Programm verwendet)");
    EXPECT_EQ(Contents(), before);
    EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path("aus/Verweis")));
  }
  disk_.onStep = {};
  Run();
  EXPECT_EQ(tools::FindFiles(folder_.Path("aus"), "*", tools::Subfolders::Search).size(), 3U);
  EXPECT_FALSE(std::filesystem::is_symlink(folder_.Path("aus/Verweis")));
  EXPECT_EQ(folder_.Read("quelle/a.txt"), "a");
}

TEST_F(ArchiveBuildTest, PutsRightWhatABuildKilledAtItsEndLeft) {
  product_.AddComponent("A", {Source("a.txt", "a")});
  const std::string stage = "aus/.packwright-0123456789abcdef.tmp/";
  struct {
    const char* what;
    std::vector<std::string> left;
    std::vector<std::string> expected;
  } const cases[] = {
      {"the old setup was being set aside", {"old/x", "new/y"}, {"x", "z"}},
      {"the new setup was moving in", {"replaced/x", "new/y"}, {"y", "z"}},
      {"somebody took a name meanwhile", {"old/z", "new/y"}, {"z"}},
  };
  for (const auto& [what, left, expected] : cases) {
    SCOPED_TRACE(what);
    tools::RemoveFolderTree(folder_.Path("aus"));
    folder_.Write("aus/z", "z");
    for (const std::string& name : left) folder_.Write(stage + name, name);
    mayEmpty_ = false;
    Run();
    std::vector<std::string> found;
    for (const std::string& path :
         tools::FindFiles(folder_.Path("aus"), "*", tools::Subfolders::Skip)) {
      found.push_back(tools::FileNamePart(path));
    }
    EXPECT_EQ(found, expected);
    EXPECT_EQ(HasOut(".packwright-0123456789abcdef.tmp/old/z"), left.front() == "old/z");
  }
}

TEST_F(ArchiveBuildTest, PutsTheOldSetupBackLaterWhenItCouldNotAtOnce) {
  product_.AddComponent("A", {Source("a.txt", "a")});
  folder_.Write("aus/1/x", "x");
  folder_.Write("aus/2", "y");
  const std::string before = Contents();
  for (const char* stuckAt : {"/old/2", "/replaced", "aus/Probe.zip", "aus/build.log"}) {
    SCOPED_TRACE(stuckAt);
    Pin(NotMoved::AllFrom, stuckAt);
    mayEmpty_ = true;
    Run();
    disk_.onStep = {};
    EXPECT_EQ(summary_->outcome, BuildOutcome::OutputFolderStuck);
    EXPECT_THAT(summary_->reason, HasSubstr("Der bisherige Inhalt des Ausgabeordners liegt in "));
    tools::DeleteFile(folder_.Path("aus/Probe.install"));  // the new one got in before the log
    tools::DeleteFile(folder_.Path("aus/Probe.zip"));
    mayEmpty_ = false;
    Run();
    EXPECT_EQ(summary_->outcome, BuildOutcome::OutputFolderInUse);
    EXPECT_TRUE(HasOut("1/x"));
    EXPECT_EQ(Out("2"), "y");
  }
  mayEmpty_ = true;
  Run();
  EXPECT_EQ(tools::FindFiles(folder_.Path("aus"), "*", tools::Subfolders::Search).size(), 3U)
      << before;
}

TEST_F(ArchiveBuildTest, WritesThroughNoLink) {
  product_.AddComponent("A", {Source("a.txt", "a")});
  options_.packaged = false;
  folder_.MakeFolder("fremd");
  folder_.MakeFolder("aus");
  std::filesystem::create_symlink(folder_.Path("fremd"), folder_.Path("aus/InstallPath"));
  mayEmpty_ = false;
  Run();
  EXPECT_EQ(summary_->outcome, BuildOutcome::OutputFolderInUse);
  EXPECT_EQ(FirstOtherFile(folder_.Path("aus")), folder_.Path("aus/InstallPath"));
  mayEmpty_ = true;
  Run();
  EXPECT_EQ(Out("InstallPath/a.txt"), "a");
  EXPECT_TRUE(std::filesystem::is_empty(folder_.Path("fremd")));
}

TEST_F(ArchiveBuildTest, RefusesAFolderThatALinkToSettingsGoesThrough) {
  const std::string component = folder_.Path("Produkt/Version 1.0.0/component1.component");
  product_.AddComponent("A", {});
  folder_.MakeFolder("aus");
  for (const char* hop : {"aus/echt.component", "aus/verweis"}) {
    std::filesystem::rename(component, folder_.Path(hop));
    std::filesystem::create_symlink(folder_.Path(hop), component);
    Run();
    EXPECT_EQ(summary_->reason,
              "Er enthält das Produkt oder eine seiner Versionen: " + folder_.Path("aus"));
    tools::DeleteFile(component);
    std::filesystem::rename(folder_.Path(hop), component);
  }
}

TEST_F(ArchiveBuildTest, EmptiesNoFolderWhileSourcesOfAnotherVersionAreUnknown) {
  project_.WriteProductSetting("Versions", "Ver2", "2.0.0");
  const std::string lost = folder_.Path("Produkt/Version 2.0.0/component1.component");
  folder_.MakeFolder("Produkt/Version 2.0.0");
  std::filesystem::create_symlink(lost, lost);
  product_.AddComponent("A", {Source("a.txt", "a")});
  Run();
  EXPECT_EQ(summary_->outcome, BuildOutcome::Finished);
  Run();
  EXPECT_EQ(summary_->outcome, BuildOutcome::InvalidOutputFolder);
  EXPECT_THAT(summary_->reason, AllOf(HasSubstr("ist nicht festzustellen: "), HasSubstr(lost)));
}

TEST_F(ArchiveBuildTest, RefusesMountedFolders) {
  // In a view of its own, so that nothing stays mounted.
  if (::unshare(CLONE_NEWNS) != 0 ||
      ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
    GTEST_SKIP() << "mounting is for the superuser";
  }
  const auto mount = [this](const std::string& what, const std::string& name) {
    const std::string target = folder_.MakeFolder(name);
    const bool bind = !what.empty();
    EXPECT_EQ(::mount(bind ? folder_.Path(what).c_str() : "none", target.c_str(), "tmpfs",
                      bind ? MS_BIND : 0, nullptr),
              0);
  };
  folder_.Write("oben/hier entsteht es/b.txt", "b");
  folder_.Write("quelle/x", "");
  mount("", "platte");
  mount("", "unten/tief/platte");
  mount("Produkt", "produkt");
  mount("quelle", "anderswo/quelle");
  mount("oben/hier entsteht es", "dort");
  product_.AddComponent(
      "A", {Source("a.txt", "a"), tests::TestProduct::File(folder_.Path("dort/b.txt"))});
  const auto refusal = [this](const std::string& name) {
    options_.folder = folder_.Path(name);
    Run();
    return summary_->reason.substr(0, summary_->reason.find(':'));
  };
  EXPECT_EQ(refusal("produkt"), "Er enthält das Produkt oder eine seiner Versionen");
  EXPECT_EQ(refusal("anderswo/quelle"), "In ihm liegen Quelldateien der Version");
  EXPECT_EQ(refusal("oben"), "In ihm liegen Quelldateien der Version");
  EXPECT_EQ(refusal("unten"), "In ihm ist ein anderer Datenträger eingehängt");
  for (int build = 1; build <= 2; ++build) EXPECT_EQ(refusal("platte"), "");
  EXPECT_TRUE(folder_.Holds("platte/Probe.zip"));
  folder_.Write("platte/wichtig.txt", "x");
  EXPECT_EQ(refusal("platte"),
            "Er ist der oberste Ordner eines Datenträgers, auf dem nicht nur ein Setup liegt");
  for (const char* name : {"platte", "unten/tief/platte", "produkt", "anderswo/quelle", "dort"}) {
    EXPECT_EQ(::umount(folder_.Path(name).c_str()), 0);
  }
}

TEST_F(ArchiveBuildTest, RefusesAFolderThatALinkedSourceLiesIn) {
  folder_.Write("echt/a.txt", "a");
  folder_.MakeFolder("hop");
  folder_.MakeFolder("quelle");
  std::filesystem::create_symlink(folder_.Path("echt/a.txt"), folder_.Path("hop/weiter"));
  std::filesystem::create_symlink(folder_.Path("hop/weiter"), folder_.Path("quelle/a.txt"));
  for (const std::string& entry : {tests::TestProduct::File(folder_.Path("quelle/a.txt")),
                                   tests::TestProduct::Scan(folder_.Path("quelle"), "*")}) {
    project_.WriteVersionSetting(1, "Components", "Count", "0");
    product_.AddComponent("A", {entry});
    for (const char* folder : {"echt", "hop"}) {
      SCOPED_TRACE(folder + entry);
      options_.folder = folder_.Path(folder);
      Run();
      EXPECT_EQ(summary_->outcome, BuildOutcome::InvalidOutputFolder);
      EXPECT_EQ(folder_.Read("echt/a.txt"), "a");
    }
  }
}

TEST_F(ArchiveBuildTest, TellsWhatAScanCannotSee) {
  folder_.Write("quelle/a.txt", "a");
  std::filesystem::create_symlink("nirgends", folder_.Path("quelle/b.txt"));
  std::filesystem::create_symlink("kreis", folder_.Path("kreis"));
  product_.AddComponent("A", {tests::TestProduct::Scan(folder_.Path("quelle"), "*.txt"),
                              tests::TestProduct::Scan(folder_.Path("kreis"), "*")});
  Run();
  EXPECT_EQ(LogLines(),
            "Warning: Link leads to no file '" + folder_.Path("quelle/b.txt") +
                "': Datei oder Ordner nicht gefunden\r\n"
                "ERROR: Unable to read folder '" +
                folder_.Path("kreis") + "': " +
                std::make_error_code(std::errc::too_many_symbolic_link_levels).message() + "\r\n");
  EXPECT_EQ(Archive(), (Members{{"1.txt", "a"}}));
  EXPECT_EQ(CheckBuild(project_, options_, 1, "").size(), 2U);
}

}  // namespace engine
