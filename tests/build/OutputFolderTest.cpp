#include "build/OutputFolder.h"
#include "build/Survey.h"
#include "tests/support/BuildFixture.h"
#include "tools/SpecialFolders.h"

namespace build {

class OutputFolderTest : public tests::BuildFixture {
 protected:
  std::string Normalize(const std::string& text) {
    return NormalizeOutputFolder(text, project_, SurveyVersion(project_, 1).locations);
  }
  /// Whether each of these folders is refused: "x" for one that is, "-" for one that is not.
  std::string Refused(const std::vector<std::string>& names) {
    std::string refused;
    for (const std::string& name : names) {
      refused += Normalize(folder_.Path(name)).empty() ? 'x' : '-';
    }
    return refused;
  }
};

TEST_F(OutputFolderTest, TakesRelativeTextFromTheProductFolder) {
  EXPECT_EQ(Normalize(" Ausgabe\\x/../Debug\t"), folder_.Path("Produkt/Ausgabe/Debug"));
  EXPECT_EQ(Normalize("..\\aus\\"), folder_.Path("aus"));
  EXPECT_EQ(Normalize(folder_.Path("neu/tief/")), folder_.Path("neu/tief"));
}

TEST_F(OutputFolderTest, RefusesBlankTextRootAndHome) {
  const std::string home = tools::SpecialFolder(tools::kProfileFolder);
  const std::string root = tools::FromPath(tools::ToPath(folder_.Path()).root_path());
  for (const std::string& text : {std::string(), std::string(" \t "), root, root + "x/..", home,
                                  home + "/x/..", tools::FolderOf(home)}) {
    EXPECT_EQ(Normalize(text), "") << text;
  }
  EXPECT_NE(Normalize(home + "/packwright-test-output"), "");
}

TEST_F(OutputFolderTest, RefusesFoldersThatHoldTheProduct) {
  project_.WriteProductSetting("Versions", "Count", "2");
  project_.WriteProductSetting("Versions", "Ver2", "2.0.0");
  EXPECT_EQ(Refused({"", "Produkt", "Produkt/.", "Produkt/Version 1.0.0", "Produkt/Version 2.0.0",
                     "Produkt/x/../Version 1.0.0", "Produkt/Version 3.0.0", "Produkt2"}),
            "xxxxxx--");
}

TEST_F(OutputFolderTest, RefusesFoldersThatHoldSources) {
  product_.AddComponent("A", {Source("a/a.txt", "a"), Source("b/b.txt", "b", "Exclude=1\n"),
                              tests::TestProduct::Scan(folder_.Path("quelle/c"), "*.txt")});
  product_.AddComponent("B", {Source("d/d.txt", "d", "Vital=99999\n")});
  folder_.Write("quelle/c/aus/liste.dat", "");
  EXPECT_EQ(Refused({"quelle", "quelle/a", "quelle/b", "quelle/c", "quelle/d", "quelle/a/aus",
                     "quelle/c/aus"}),
            "xxxxx--");
  folder_.Write("quelle/c/aus/tief/liste.txt", "");
  EXPECT_EQ(Refused({"quelle/c/aus"}), "x");
}

}  // namespace build
