#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "tests/support/TemporaryFolder.h"
#include "tools/Disk.h"
#include "tools/Error.h"
#include "tools/Files.h"
#include "tools/Path.h"

namespace tools {
namespace {

TEST(LinksTest, FilesAreFollowedAndFoldersAreNot) {
  const tests::TemporaryFolder folder;
  folder.Write("baum/echt.txt", "x");
  folder.Write("draußen/geheim.txt", "x");
  std::filesystem::create_directory_symlink(folder.Path("draußen"), folder.Path("baum/hinaus"));
  std::filesystem::create_directory_symlink(folder.Path("baum"), folder.Path("baum/kreis"));
  std::filesystem::create_symlink(folder.Path("draußen/geheim.txt"), folder.Path("baum/link.txt"));
  std::filesystem::create_symlink(folder.Path("nirgends"), folder.Path("baum/tot.txt"));
  EXPECT_EQ(FindFiles(folder.Path("baum"), "*", true),
            (std::vector<std::string>{folder.Path("baum/echt.txt"), folder.Path("baum/link.txt")}));

  RemoveFolderTree(folder.Path("baum"));
  EXPECT_TRUE(folder.Holds("draußen/geheim.txt"));
}

TEST(LinksTest, ReplacingThroughALinkKeepsTheLinkAndTheRights) {
  const tests::TemporaryFolder folder;
  const std::string target = folder.Write("echt.product", "alt");
  ::chmod(target.c_str(), 0640);
  std::filesystem::create_symlink("echt.product", folder.Path("link.product"));
  SystemDisk disk;
  WriteTextFile(disk, folder.Path("link.product"), "neu", ReplacementFile::Durability::Flushed);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link.product")));
  EXPECT_EQ(folder.Read("echt.product"), "neu");
  struct stat status {};
  ASSERT_EQ(::stat(target.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST(CopyFileTest, RefusesWhatIsNoRegularFile) {
  const tests::TemporaryFolder folder;
  ASSERT_EQ(::mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(CopyFile(folder.Path("pipe"), folder.Path("ziel")).Succeeded());
  EXPECT_FALSE(CopyFile("/dev/zero", folder.Path("ziel")).Succeeded());
  EXPECT_FALSE(folder.Holds("ziel"));
}

TEST(CopyFileTest, ReadsFilesWhoseSizeTheSystemHides) {
  const tests::TemporaryFolder folder;
  ASSERT_TRUE(CopyFile("/proc/self/status", folder.Path("ziel")).Succeeded());
  EXPECT_NE(folder.Read("ziel").find("Name:"), std::string::npos);
}

}  // namespace
}  // namespace tools
