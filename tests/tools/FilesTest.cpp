#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "tools/Error.h"
#include "tools/Files.h"
#include "tools/Path.h"

namespace tools {
namespace {

std::vector<std::string> NamesBelow(const tests::TemporaryFolder& folder,
                                    std::vector<std::string> paths) {
  for (std::string& path : paths) {
    path = path.substr(folder.Path().size() + 1);
    for (char& c : path) {
      if (c == kPathSeparator) c = '/';
    }
  }
  return paths;
}

TEST(FindFilesTest, ListsAFoldersFilesBeforeItsSubfoldersInByteOrder) {
  const tests::TemporaryFolder folder;
  for (const char* name : {"b/z", "b/a", "a2", "Z", "a.txt", "D/1", "ä"}) folder.Write(name, "");
  EXPECT_EQ(NamesBelow(folder, FindFiles(folder.Path(), "*.*", false)),
            (std::vector<std::string>{"Z", "a.txt", "a2", "ä"}));
  EXPECT_EQ(NamesBelow(folder, FindFiles(EnsureTrailingSeparator(folder.Path()), "*.*", true)),
            (std::vector<std::string>{"Z", "a.txt", "a2", "ä", "D/1", "b/a", "b/z"}));
  EXPECT_TRUE(FindFiles(folder.Path("fehlt"), "*", true).empty());
}

TEST(FindFilesTest, MatchesNamesAsWindowsDoes) {
  const struct {
    const char* pattern;
    const char* name;
    bool matches;
  } cases[] = {
      {"*.*", "ohne", true},         {"*.txt", "A.TXT", true},
      {"*.txt", "a.txt.bak", false}, {"Über*", "über.doc", true},
      {"?.c", "ä.c", true},          {"??.c", "a.c", true},
      {"a?b", "ab", false},          {"*.", "ohne", true},
      {"*.", "mit.e", false},        {"lib*.so.?", "libx.so.1", true},
      {"a*b*c", "aXbYbZc", true},    {"a*b*c", "aXbYbZ", false},
      {"name.*", "name", true},      {"", "a", false},
      {"*", ".versteckt", true},     {"*.htm", "a.html", false},
      {"****", "x", true},           {"x", "xx", false},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(MatchesPattern(test.name, test.pattern), test.matches)
        << test.pattern << " / " << test.name;
  }
}

TEST(FilesTest, CopiesContentAndTimeAndReplacesAWholeTarget) {
  const tests::TemporaryFolder folder;
  const std::string content(200'000, 'x');
  const std::string source = folder.Write("quelle ü.bin", content + "Ende");
  const std::string target = folder.Write("ziel.bin", "alter Inhalt");
  const CopyResult result = CopyFile(source, target);
  EXPECT_TRUE(result.Succeeded()) << result.errorText;
  EXPECT_EQ(result.bytes, content.size() + 4);
  EXPECT_EQ(folder.Read("ziel.bin"), content + "Ende");
  EXPECT_EQ(StampOf(source).modifiedNanoseconds / 1'000'000'000,
            StampOf(target).modifiedNanoseconds / 1'000'000'000);
  EXPECT_EQ(FindFiles(folder.Path(), "*", true).size(), 2U);
}

TEST(FilesTest, FailedCopySaysWhyAndLeavesTheTargetAsItWas) {
  const tests::TemporaryFolder folder;
  const std::string target = folder.Write("ziel", "alt");
  const CopyResult missing = CopyFile(folder.Path("fehlt"), target);
  EXPECT_FALSE(missing.Succeeded());
  EXPECT_EQ(missing.cause, std::errc::no_such_file_or_directory);
  EXPECT_FALSE(CopyFile(folder.Path(), target).Succeeded());
  EXPECT_FALSE(CopyFile(target, folder.MakeFolder("ordner")).Succeeded());
  EXPECT_FALSE(CopyFile(target, folder.Path("kein/ordner")).Succeeded());
  EXPECT_TRUE(CopyFile(target, target).Succeeded());
  EXPECT_EQ(folder.Read("ziel"), "alt");
}

TEST(FilesTest, ProgressCanStopACopyWithoutLeavingAPart) {
  const tests::TemporaryFolder folder;
  const std::string source = folder.Write("groß", std::string(20U << 20U, 'x'));
  EXPECT_THROW(
      (void)CopyFile(source, folder.Path("teil"), [](std::uint64_t) { throw Error("Abbruch"); }),
      Error);
  EXPECT_FALSE(folder.Holds("teil"));
}

TEST(FilesTest, MakesAndRemovesDeepTrees) {
  const tests::TemporaryFolder folder;
  std::string deep = folder.Path();
  for (int i = 0; i < 10; ++i) deep = JoinPath(deep, std::string(60, 'o'));
  MakeFolder(deep);
  MakeFolder(deep);
  const std::string file = JoinPath(deep, "7.");
  EXPECT_TRUE(CopyFile(folder.Write("quelle", "Inhalt"), file).Succeeded());
  EXPECT_EQ(ReadWholeFile(file), "Inhalt");
  EXPECT_EQ(FindFiles(folder.Path(), "*", true).size(), 2U);
  RemoveFolderTree(folder.Path(std::string(60, 'o')));
  EXPECT_FALSE(FolderExists(folder.Path(std::string(60, 'o'))));
  EXPECT_NO_THROW(RemoveFolderTree(folder.Path("fehlt")));
  EXPECT_THROW(MakeFolder(folder.Path("quelle/ordner")), Error);
}

}  // namespace
}  // namespace tools
