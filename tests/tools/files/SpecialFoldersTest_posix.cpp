#include <stdlib.h>

#include "tests/support/Testing.h"
#include "tools/files/SpecialFolders.h"

namespace tools {

class XdgFoldersTest : public testing::Test {
 protected:
  XdgFoldersTest() {
    setenv("HOME", folder_.Path().c_str(), 1);
    setenv("XDG_CONFIG_HOME", "relative/is/ignored", 1);
    unsetenv("TMPDIR");
  }
  ~XdgFoldersTest() override { unsetenv("TMPDIR"); }

  const TemporaryFolder folder_;
};

TEST_F(XdgFoldersTest, DocumentsComeFromTheUsersOwnFileAndDefaultsLieInTheHomeFolder) {
  EXPECT_EQ(SpecialFolder(kProfileFolder), folder_.Path());
  EXPECT_EQ(SpecialFolder(kUserDataFolder), folder_.Path(".config"));
  EXPECT_EQ(SpecialFolder(kDocumentsFolder), folder_.Path());
  EXPECT_EQ(SpecialFolder(kTemporaryFolder), "/tmp");
  EXPECT_THAT(HomeFolders(), testing::IsSupersetOf({folder_.Path(), std::string("/root")}));
  setenv("XDG_CONFIG_HOME", (folder_.Path("settings") + "//").c_str(), 1);
  EXPECT_EQ(SpecialFolder(kUserDataFolder), folder_.Path("settings"));
  folder_.Write("settings/user-dirs.dirs",
                "# a comment\nXDG_DOCUMENTS_DIR_X=\"/wrong\"\n#XDG_DOCUMENTS_DIR=\"/wrong\"\n"
                " XDG_DOCUMENTS_DIR=\"$HOME/Eigene \\\"Büro\\\"-Dateien/\"\n");
  EXPECT_EQ(SpecialFolder(kDocumentsFolder), folder_.Path("Eigene \"Büro\"-Dateien"));
  folder_.Write("settings/user-dirs.dirs",
                "XDG_DOCUMENTS_DIR=\"relative\"\nXDG_DOCUMENTS_DIR=\"/srv/docs\"\n");
  EXPECT_EQ(SpecialFolder(kDocumentsFolder), "/srv/docs");
}

}  // namespace tools
