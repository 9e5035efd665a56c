#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/support/WithoutRights.h"
#include "tools/files/FolderLock.h"
#include "tools/files/SystemFiles_posix.h"

namespace tools {

using tests::ErrorWithoutRights;

TEST(LinksTest, ReplacingThroughALinkKeepsTheLink) {
  const TemporaryFolder folder;
  const std::string target = folder.Write("echt.product", "alt");
  ::chmod(target.c_str(), 0640);
  std::filesystem::create_symlink("echt.product", folder.Path("link.product"));
  SystemDisk disk;
  WriteTextFile(disk, folder.Path("link.product"), "neu", ReplacementFile::Durability::Flushed);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link.product")));
  EXPECT_EQ(folder.Read("echt.product"), "neu");
  EXPECT_EQ(std::filesystem::status(target).permissions(), std::filesystem::perms{0640});
}

TEST(LinksTest, FoldersBelowAnotherAreReachedThroughNone) {
  const TemporaryFolder folder;
  folder.Write("fremd/aus/x", "fremd");
  folder.Write("wurzel/aus/x", "x");
  std::filesystem::create_symlink(folder.Path("fremd"), folder.Path("wurzel/link"));
  EXPECT_THAT(ErrorOf([&] { MakeFolderBelow(folder.Path("wurzel"), "link/neu"); }),
              HasSubstr(folder.Path("wurzel/link")));
  MakeFolderBelow(folder.Path("wurzel"), "neu//tief");
  EXPECT_TRUE(folder.Holds("wurzel/neu/tief"));
  EXPECT_FALSE(folder.Holds("fremd/neu"));

  const FolderClaim claim(folder.Path("wurzel/aus"));
  // Somebody leads the path elsewhere meanwhile.
  std::filesystem::rename(folder.Path("wurzel"), folder.Path("früher"));
  std::filesystem::create_symlink(folder.Path("fremd"), folder.Path("wurzel"));
  claim.Remove("x");
  EXPECT_TRUE(folder.Holds("fremd/aus/x"));
  EXPECT_FALSE(folder.Holds("früher/aus/x"));
}

TEST(RemoveFolderTreeTest, NeedsNoMoreDescriptorsForADeeperTree) {
  const TemporaryFolder folder;
  std::string below;
  for (int i = 0; i < 200; ++i) below += "o/";
  MakeFolderBelow(folder.MakeFolder("tief"), below);
  rlimit limit{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
  const rlimit few{100, limit.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
  EXPECT_NO_THROW(RemoveFolderTree(folder.Path("tief")));
  ::setrlimit(RLIMIT_NOFILE, &limit);
  EXPECT_FALSE(FolderExists(folder.Path("tief")));
}

TEST(FolderErrorsTest, NameThePathThatStoppedThem) {
  const TemporaryFolder folder;
  const std::string file = folder.Write("baum/zu/datei", "x");
  ::chmod(folder.Path().c_str(), 0755);
  ::chmod(folder.Path("baum/zu").c_str(), 0555);
  EXPECT_THAT(ErrorWithoutRights([&] { RemoveFolderTree(folder.Path("baum")); }),
              EndsWith(": " + file + " (Zugriff verweigert)"));
  EXPECT_THAT(ErrorWithoutRights([&] { MakeFolder(folder.Path("baum/zu/neu/tief")); }),
              EndsWith(": " + folder.Path("baum/zu/neu") + " (Zugriff verweigert)"));
  EXPECT_THAT(ErrorOf([&] { MakeFolder(file + "/neu"); }),
              EndsWith(" (Ein Teil des Pfades ist kein Ordner)"));
  EXPECT_THROW(MakeFolder(folder.Path("neu/" + std::string(300, 'x'))), Error);
  EXPECT_FALSE(folder.Holds("neu"));
}

// Fills the file again, in its place.
void Rewrite(const std::string& path, char content) {
  const int file = ::open(path.c_str(), O_WRONLY);
  const std::string bytes(2'000'000, content);
  EXPECT_EQ(::write(file, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  ::close(file);
}

TEST(ChangingSourceTest, IsCopiedOnceMore) {
  const TemporaryFolder folder;
  const std::string source = folder.Write("quelle", std::string(9'000'000, 'a'));
  int changes = 1;
  const auto change = [&](std::uint64_t) {
    if (changes-- > 0) Rewrite(source, static_cast<char>('a' + changes));
  };
  EXPECT_TRUE(CopyFile(source, folder.Path("ziel"), change).Succeeded());
  EXPECT_TRUE(folder.Read("ziel") == folder.Read("quelle"));
  changes = 100;
  EXPECT_EQ(CopyFile(source, folder.Path("ziel"), change).errorText,
            "Die Datei ändert sich gerade");
}

TEST(FileStampTest, TimesThatNanosecondsCannotCountAreCutOff) {
  struct stat status {};
  status.st_mtim.tv_sec = std::numeric_limits<time_t>::max();
  EXPECT_GE(StampFrom(status).modified, FileTime(std::chrono::seconds(9'223'372'035)));
  status.st_mtim.tv_sec = std::numeric_limits<time_t>::min();
  EXPECT_LT(StampFrom(status).modified, FileTime(std::chrono::seconds(-9'223'372'034)));
}

TEST(CopyFileTest, RefusesWhatIsNoRegularFile) {
  const TemporaryFolder folder;
  ASSERT_EQ(::mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(CopyFile(folder.Path("pipe"), folder.Path("ziel")).Succeeded());
  EXPECT_FALSE(CopyFile("/dev/zero", folder.Path("ziel")).Succeeded());
  EXPECT_FALSE(folder.Holds("ziel"));
  ASSERT_TRUE(CopyFile("/proc/self/status", folder.Path("ziel")).Succeeded());
  EXPECT_THAT(folder.Read("ziel"), HasSubstr("Name:"));
}

}  // namespace tools
