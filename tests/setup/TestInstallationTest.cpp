#include "setup/TestInstallation.h"
#include "tests/support/Testing.h"
#include "tests/support/ZipMaker.h"

namespace setup {

class TestInstallationTest : public testing::Test {
 protected:
  /// Adds a file to the setup and to its plan.
  void Add(const std::string& target, const std::string& content, CopyRule rule = CopyRule::Copy,
           const std::string& stored = {}) {
    const std::string name = stored.empty() ? std::to_string(members_.size() + 1) + ".x" : stored;
    members_.push_back({name, content, true});
    PlannedFile file;
    file.rule = rule;
    file.target = target;
    file.stored = name;
    file.packaged = file.deletesTemporary = true;
    setup_.plan.files.push_back(file);
  }
  /// Installs; gives what became of each file, or the error.
  std::vector<std::string> Install() {
    if (!members_.empty()) {
      setup_.folder = folder_.MakeFolder("setup");
      setup_.archive =
          std::make_unique<Archive>(folder_.Write("setup/a.zip", tests::MakeZip(members_)));
    }
    std::vector<std::string> outcomes;
    const InstallationObserver observer{
        [&](const InstalledFile& file) {
          static constexpr const char* kNames[] = {"neu", "ersetzt", "geblieben"};
          outcomes.push_back(file.place + " " + kNames[static_cast<int>(file.outcome)] +
                             (file.IsRedirected() ? " umgeleitet" : ""));
        },
        [](const tools::Progress&) {}};
    tools::SystemDisk disk;
    const std::string error =
        ErrorOf([&] { totals_ = InstallInto(setup_, folder_.Path("probe"), disk, observer); });
    if (error != "no error") outcomes = {error};
    return outcomes;
  }

  TemporaryFolder folder_;
  setup::Setup setup_;
  InstallationTotals totals_;
  std::vector<tests::ZipMember> members_;
};

TEST_F(TestInstallationTest, PutsEachFileBelowTheFolder) {
  Add("%InstallPath%\\a\\b.txt", "eins");
  Add("C:\\Programme\\c.txt", "zwei");
  Add("\\d.txt", "drei");
  Add("%AppData%\\..\\..\\e\\..\\f.txt", "vier");
  EXPECT_THAT(Install(), ElementsAre("InstallPath/a/b.txt neu", "C/Programme/c.txt neu umgeleitet",
                                     "root/d.txt neu umgeleitet", "AppData/f.txt neu umgeleitet"));
  EXPECT_EQ(folder_.Read("probe/AppData/f.txt"), "vier");
  EXPECT_FALSE(folder_.Holds("probe/TempPath"));
  EXPECT_EQ(totals_.created, 4U);
}

TEST_F(TestInstallationTest, ReplacesByTheRuleWhereCaseDoesNotCount) {
  Add("%InstallPath%\\Ü\\a.txt", "alt", CopyRule::Add);
  Add("%InstallPath%\\ü\\A.TXT", "bleibt draußen", CopyRule::Add);
  EXPECT_THAT(Install(), ElementsAre("InstallPath/Ü/a.txt neu", "InstallPath/Ü/a.txt geblieben"));
  EXPECT_EQ(folder_.Read("probe/InstallPath/Ü/a.txt"), "alt");

  tools::SystemDisk().Discard(folder_.Path("probe/InstallPath/Ü/a.txt"));
  Add("%InstallPath%\\ü\\A.txt", "neu", CopyRule::ReplaceSafely);
  EXPECT_THAT(Install().back(), "InstallPath/Ü/a.txt ersetzt");
  EXPECT_EQ(folder_.Read("probe/InstallPath/Ü/a.txt"), "neu");
}

TEST_F(TestInstallationTest, TreatsTheTemporaryFolderAsTheRuntimeDoes) {
  Add("%TempPath%\\bleibt.x", "b");
  Add("%TempPath%\\2.x", "gleich gelöscht");  // unpacked to its own target, then deleted
  Add("%TempPath%\\5.x", "verloren");         // what is unpacked later takes its place
  Add("%InstallPath%\\a.x", "a", CopyRule::Add);
  Add("%InstallPath%\\a.x", "A", CopyRule::Add);  // kept: the unpacked file goes
  Install();
  EXPECT_EQ(folder_.Read("probe/TempPath/bleibt.x"), "b");
  for (const char* gone : {"2.x", "4.x", "5.x"}) {
    EXPECT_FALSE(folder_.Holds(std::string("probe/TempPath/") + gone)) << gone;
  }
}

TEST_F(TestInstallationTest, NamesTheFileThatCannotBeInstalled) {
  Add("%InstallPath%\\a", "x");
  Add("%InstallPath%\\a\\b", "y");
  EXPECT_THAT(Install(), ElementsAre(HasSubstr("InstallPath")));
  setup_.plan.files.erase(setup_.plan.files.begin());
  setup_.plan.files[0].stored = "fehlt.x";
  EXPECT_THAT(Install(), ElementsAre(HasSubstr("fehlt.x")));
  setup_.plan.files.clear();
  members_.clear();
  Add("%InstallPath%\\c", "x");
  members_[0].checksum = 1;
  EXPECT_THAT(Install(), ElementsAre(HasSubstr("Prüfsumme")));
  for (int i = 0; i < 1000; ++i) {  // a terabyte and more, promised by the directory
    Add("%InstallPath%\\bombe", "x");
    members_.back().size = 0xFFFFFFF0;
  }
  EXPECT_THAT(Install(), ElementsAre(HasSubstr("zu wenig Platz")));
}

TEST_F(TestInstallationTest, TakesNoDeadLinkForAFreeFolder) {
  std::error_code impossible;  // links need a right under Windows
  std::filesystem::create_symlink("nirgends", tools::ToPath(folder_.Path("tot")), impossible);
  EXPECT_EQ(IsFreeFolder(folder_.Path("tot")), bool{impossible});
}

}  // namespace setup
