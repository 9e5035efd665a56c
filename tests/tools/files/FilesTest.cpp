#include <tuple>

#include "tests/support/Testing.h"

namespace tools {

using testing::ElementsAreArray;

class FilesTest : public testing::Test {
 protected:
  /// Paths below the folder, as the names that were given to it.
  [[nodiscard]] std::vector<std::string> Paths(std::vector<std::string> names) const {
    for (std::string& name : names) name = folder_.Path(name);
    return names;
  }

  const TemporaryFolder folder_;
};

TEST_F(FilesTest, FindListsAFoldersFilesBeforeItsSubfoldersInByteOrder) {
  for (const char* name : {"b/z", "b/a", "a2", "Z", "a.txt", "D/1", "ä"}) folder_.Write(name, "");
  EXPECT_THAT(FindFiles(folder_.Path(), "*.*", Subfolders::Skip),
              ElementsAreArray(Paths({"Z", "a.txt", "a2", "ä"})));
  EXPECT_THAT(FindFiles(EnsureTrailingSeparator(folder_.Path()), "*.*", Subfolders::Search),
              ElementsAreArray(Paths({"Z", "a.txt", "a2", "ä", "D/1", "b/a", "b/z"})));
  EXPECT_TRUE(FindFiles(folder_.Path("fehlt"), "*", Subfolders::Search).empty());
}

TEST_F(FilesTest, PatternsMatchNamesAsWindowsDoes) {
  const std::tuple<std::string, const char*, bool> rows[] = {{"*.*", "ohne", true},
                                                             {"*.txt", "A.TXT", true},
                                                             {"*.txt", "a.txt.bak", false},
                                                             {"Über*", "über.doc", true},
                                                             {"?.c", "ä.c", true},
                                                             {"??.c", "a.c", true},
                                                             {"a?b", "ab", false},
                                                             {"*.", "ohne", true},
                                                             {"*.", "mit.e", false},
                                                             {"lib*.so.?", "libx.so.1", true},
                                                             {"a*b*c", "aXbYbZc", true},
                                                             {"a*b*c", "aXbYbZ", false},
                                                             {"name.*", "name", true},
                                                             {"", "a", false},
                                                             {"*", ".versteckt", true},
                                                             {"*.htm", "a.html", false},
                                                             {"****", "x", true},
                                                             {"x", "xx", false},
                                                             {std::string(255, '*'), "x", true},
                                                             {std::string(1021, '*'), "x", false}};
  for (const auto& [pattern, name, matches] : rows) {
    EXPECT_EQ(MatchesPattern(name, pattern), matches) << pattern << " / " << name;
  }
}

TEST_F(FilesTest, ACopyHasContentAndTimeOfItsSource) {
  const std::string content = std::string(200'000, 'x') + "Ende";
  const std::string source = folder_.Write("quelle ü.bin", content);
  const std::string target = folder_.Write("ziel.bin", "alter Inhalt");
  const CopyResult result = CopyFile(source, target);
  EXPECT_TRUE(result.Succeeded()) << result.errorText;
  EXPECT_EQ(result.bytes, content.size());
  EXPECT_EQ(folder_.Read("ziel.bin"), content);
  EXPECT_LT(std::chrono::abs(StampOf(source).modified - StampOf(target).modified),
            std::chrono::seconds(1));
  EXPECT_EQ(FindFiles(folder_.Path(), "*", Subfolders::Search).size(), 2U);
}

TEST_F(FilesTest, AFailedCopyLeavesTheTargetAsItWas) {
  const std::string target = folder_.Write("ziel", "alt");
  EXPECT_EQ(CopyFile(folder_.Path("fehlt"), target).cause, std::errc::no_such_file_or_directory);
  EXPECT_FALSE(CopyFile(folder_.Path(), target).Succeeded());
  EXPECT_FALSE(CopyFile(target, folder_.MakeFolder("ordner")).Succeeded());
  EXPECT_FALSE(CopyFile(target, folder_.Path("kein/ordner")).Succeeded());
  EXPECT_TRUE(CopyFile(target, target).Succeeded());
  EXPECT_EQ(folder_.Read("ziel"), "alt");
}

TEST_F(FilesTest, CopesWithDeepTrees) {
  std::string deep = folder_.Path();
  for (int i = 0; i < 10; ++i) deep = JoinPath(deep, std::string(60, 'o'));
  MakeFolder(deep);
  MakeFolder(deep);
  const std::string file = JoinPath(deep, "7.");
  EXPECT_TRUE(CopyFile(folder_.Write("quelle", "Inhalt"), file).Succeeded());
  EXPECT_EQ(ReadWholeFile(file), "Inhalt");
  EXPECT_EQ(FindFiles(folder_.Path(), "*", Subfolders::Search).size(), 2U);
  RemoveFolderTree(folder_.Path(std::string(60, 'o')));
  EXPECT_FALSE(FolderExists(folder_.Path(std::string(60, 'o'))));
  EXPECT_NO_THROW(RemoveFolderTree(folder_.Path("fehlt")));
  EXPECT_THROW(MakeFolder(folder_.Path("quelle/ordner")), Error);
}

}  // namespace tools
