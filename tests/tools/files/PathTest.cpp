#include <algorithm>
#include <tuple>

#include "tests/support/Testing.h"

namespace tools {

static std::string Native(std::string text) {
  std::replace(text.begin(), text.end(), '/', kPathSeparator);
  return text;
}

TEST(PathTest, TakesPathsApart) {
  const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
      {"/a/b.c/datei.tar.gz", "/a/b.c", "datei.tar.gz", "gz"},
      {"/datei", "/", "datei", ""},
      {"datei.", "", "datei.", ""},
      {"/a/b.c/", "/a/b.c", "", ""}};
  for (const auto& [text, folder, name, extension] : rows) {
    const std::string path = Native(text);
    EXPECT_EQ(FolderOf(path), Native(folder)) << path;
    EXPECT_EQ(FileNamePart(path), name) << path;
    EXPECT_EQ(Extension(path), extension) << path;
  }
  EXPECT_EQ(EnsureTrailingSeparator(Native("/a")), Native("/a/"));
  EXPECT_EQ(EnsureTrailingSeparator(Native("/a/")), Native("/a/"));
}

TEST(PathTest, TakesRelativeTextFromTheBaseFolderWithEitherSeparator) {
  EXPECT_EQ(ResolvePath("src/bin\\x", Native("/p")), Native("/p/src/bin/x"));
  EXPECT_EQ(ResolvePath(Native("/abs/x"), Native("/p")), Native("/abs/x"));
}

TEST(PathTest, CanonicalPathKeepsWhatDoesNotExist) {
  const TemporaryFolder folder;
  folder.MakeFolder("da/drin");
  const std::string base = CanonicalPath(folder.Path());
  EXPECT_EQ(CanonicalPath(folder.Path("da/drin/../../neu/./x/")), base + Native("/neu/x"));
  EXPECT_TRUE(IsSameOrBelow(base + Native("/neu"), base));
  EXPECT_TRUE(IsSameOrBelow(base, base));
  EXPECT_FALSE(IsSameOrBelow(base + "neu", base));
  EXPECT_FALSE(IsSameOrBelow(base, base + Native("/neu")));
}

}  // namespace tools
