#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "tools/Path.h"

namespace tools {
namespace {

std::string Native(std::string text) {
  for (char& c : text) {
    if (c == '/') c = kPathSeparator;
  }
  return text;
}

TEST(PathTest, TakesPathsApart) {
  EXPECT_EQ(FolderOf(Native("/a/b.c/datei.tar.gz")), Native("/a/b.c"));
  EXPECT_EQ(FolderOf(Native("/datei")), Native("/"));
  EXPECT_EQ(FolderOf("datei"), "");
  EXPECT_EQ(FileNamePart(Native("/a/b.c/datei.tar.gz")), "datei.tar.gz");
  EXPECT_EQ(FileNamePart(Native("/a/")), "");
  EXPECT_EQ(Extension(Native("/a/b.c/datei.tar.gz")), "gz");
  EXPECT_EQ(Extension(Native("/a/b.c/datei")), "");
  EXPECT_EQ(Extension("datei."), "");
  EXPECT_EQ(EnsureTrailingSeparator(Native("/a")), Native("/a/"));
  EXPECT_EQ(EnsureTrailingSeparator(Native("/a/")), Native("/a/"));
}

TEST(PathTest, TakesRelativeTextFromTheBaseFolderWithEitherSeparator) {
  EXPECT_EQ(ResolvePath("src/bin", Native("/p")), Native("/p/src/bin"));
  EXPECT_EQ(ResolvePath("src\\bin", Native("/p")), Native("/p/src/bin"));
  EXPECT_EQ(ResolvePath(Native("/abs/x"), Native("/p")), Native("/abs/x"));
}

TEST(PathTest, CanonicalPathResolvesDotsAndKeepsWhatDoesNotExist) {
  const tests::TemporaryFolder folder;
  folder.MakeFolder("da/drin");
  const std::string base = CanonicalPath(folder.Path());
  EXPECT_EQ(CanonicalPath(folder.Path("da/drin/../../neu/./x/")), base + Native("/neu/x"));
  EXPECT_TRUE(IsSameOrBelow(base + Native("/neu"), base));
  EXPECT_TRUE(IsSameOrBelow(base, base));
  EXPECT_FALSE(IsSameOrBelow(base + "neu", base));
  EXPECT_FALSE(IsSameOrBelow(base, base + Native("/neu")));
}

}  // namespace
}  // namespace tools
