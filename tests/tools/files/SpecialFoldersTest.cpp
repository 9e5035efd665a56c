#include "tests/support/Testing.h"
#include "tools/files/SpecialFolders.h"

namespace tools {

TEST(SpecialFoldersTest, KnowsItsFoldersOnly) {
  for (const auto number : {kDocumentsFolder, kUserDataFolder, kProfileFolder, kTemporaryFolder}) {
    const std::string folder = SpecialFolder(number);
    EXPECT_TRUE(IsAbsolutePath(folder)) << number;
    EXPECT_EQ(folder, JoinPath(FolderOf(folder), FileNamePart(folder)))
        << "no separator at its end";
  }
  for (const std::int32_t number : {-1, 2001, 9999}) EXPECT_EQ(SpecialFolder(number), "");
}

}  // namespace tools
