#include <fstream>

#include "tests/support/Testing.h"
#include "tools/files/Files.h"
#include "tools/files/Path.h"
#include "tools/files/SpecialFolders.h"

namespace tools {

TEST(SpecialFoldersTest, KnowsItsFoldersAndNoOthers) {
  for (const auto number : {kDocumentsFolder, kUserDataFolder, kProfileFolder, kTemporaryFolder}) {
    const std::string folder = SpecialFolder(number);
    EXPECT_TRUE(IsAbsolutePath(folder)) << number;
    EXPECT_FALSE(folder.size() > 3 && IsPathSeparator(folder.back())) << folder;
  }
  for (const std::int32_t number : {-1, 2001, 9999}) EXPECT_EQ(SpecialFolder(number), "");
}

TEST(SpecialFoldersTest, APrivateFolderIsGoneWithItsContents) {
  std::string path;
  {
    const PrivateTemporaryFolder folder;
    path = folder.Path();
    EXPECT_NE(path, PrivateTemporaryFolder().Path());
    EXPECT_EQ(FolderOf(path), SpecialFolder(kTemporaryFolder));
    MakeFolder(JoinPath(path, "PackwrightTemp"));
    std::ofstream(ToPath(JoinPath(path, "PackwrightTemp/1.txt"))) << "x";
    EXPECT_EQ(FindFiles(path, "*", true).size(), 1U);
  }
  EXPECT_FALSE(FolderExists(path));
}

}  // namespace tools
