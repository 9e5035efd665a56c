#include "tests/support/Testing.h"
#include "tools/files/FolderClaim.h"

namespace tools {

TEST(FolderClaimTest, KeepsASecondOneOutAndNamesTheHolder) {
  const tests::TemporaryFolder folder;
  const std::string path = folder.Path("neu/aus");
  {
    const FolderClaim first(path);
    EXPECT_THAT(
        tests::ErrorOf([&] { const FolderClaim second(path); }),
        AllOf(testing::StartsWith("In den Ordner wird gerade ein anderes Setup geschrieben: "),
              testing::HasSubstr("(Prozess ")));
    EXPECT_TRUE(folder.Holds("neu/aus"));
  }
  EXPECT_FALSE(folder.Holds("neu")) << "what was made for it goes when it is empty";
  {
    const FolderClaim again(path);
    folder.Write("neu/aus/datei", "");
    folder.Write("neu/aus/ordner/tief", "");
    again.Remove("ordner");
    again.Remove("ordner");
  }
  EXPECT_TRUE(folder.Holds("neu/aus/datei"));
  EXPECT_FALSE(folder.Holds("neu/aus/ordner"));
}

}  // namespace tools
