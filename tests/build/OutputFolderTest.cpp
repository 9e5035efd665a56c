#include <filesystem>

#include "build/OutputFolder.h"
#include "tests/support/BuildFixture.h"
#include "tools/SpecialFolders.h"

namespace build {
namespace {

using tests::TestProduct;

class OutputFolderTest : public tests::BuildFixture {
 protected:
  std::string Normalize(const std::string& text) {
    return NormalizeOutputFolder(text, product_.Project(),
                                 SurveyVersion(product_.Project(), 1).locations);
  }
  std::string At(const std::string& name) { return Normalize(folder_.Path(name)); }
};

TEST_F(OutputFolderTest, TakesRelativeTextFromTheProductFolder) {
  EXPECT_EQ(Normalize(" Ausgabe\\x/../Debug\t"), folder_.Path("Produkt/Ausgabe/Debug"));
  EXPECT_EQ(Normalize("..\\aus\\"), folder_.Path("aus"));
  EXPECT_EQ(At("neu/tief/"), folder_.Path("neu/tief"));
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
  product_.Project().WriteProductSetting("Versions", "Count", "2");
  product_.Project().WriteProductSetting("Versions", "Ver2", "2.0.0");
  for (const char* name : {"", "Produkt", "Produkt/.", "Produkt/Version 1.0.0",
                           "Produkt/Version 2.0.0", "Produkt/x/../Version 1.0.0"}) {
    EXPECT_EQ(At(name), "") << name;
  }
  EXPECT_NE(At("Produkt/Version 3.0.0"), "");
  EXPECT_NE(At("Produkt2"), "");
}

TEST_F(OutputFolderTest, RefusesFoldersThatHoldSources) {
  model::ICFile excluded = Source("b/b.txt", "b");
  excluded.Exclude = 1;
  product_.AddComponent("A", {Source("a/a.txt", "a"), excluded,
                              TestProduct::Scan(folder_.Path("quelle/c"), "*.txt")});
  product_.AddComponent("B", {Source("d/d.txt", "d")});
  product_.Project().WriteComponentSetting(1, 2, "File1", "Vital", "99999");
  for (const char* name : {"quelle", "quelle/a", "quelle/b", "quelle/c", "quelle/d"}) {
    EXPECT_EQ(At(name), "") << name;
  }
  EXPECT_NE(At("quelle/a/aus"), "");
  folder_.Write("quelle/c/aus/liste.dat", "");
  EXPECT_NE(At("quelle/c/aus"), "");
  folder_.Write("quelle/c/aus/tief/liste.txt", "");
  EXPECT_EQ(At("quelle/c/aus"), "");
}

}  // namespace
}  // namespace build
