#include "model/ModProject.h"
#include "model/StoredNumbers.h"
#include "tests/support/TestProduct.h"
#include "tests/support/Testing.h"

namespace model {

class ModProjectTest : public testing::Test {
 protected:
  TemporaryFolder folder_;
  tests::TestProduct product_{folder_};
  ModProject& project_ = product_.Project();
};

TEST_F(ModProjectTest, HasNoSettingsWhileNoProductIsOpen) {
  const std::string before = folder_.Read(product_.kFile) + folder_.Read(product_.kVersionFile);
  project_.SetProductPath("");
  project_.SetProductTitle("Anders");
  project_.WriteVersionSetting(1, "Tessel", "Key", "k");
  project_.WriteComponentSetting(1, 1, "Component", "Title", "t");
  EXPECT_EQ(project_.ReadComponentSetting(1, 1, "Component", "Title", "-"), "-");
  EXPECT_EQ(project_.VersionFilePath(1), "");
  EXPECT_EQ(folder_.Read(product_.kFile) + folder_.Read(product_.kVersionFile), before);
  project_.SetProductPath("x.product");
  const std::string folder = project_.ProductFolder();
  EXPECT_TRUE(tools::IsAbsolutePath(folder));
  project_.SetProductPath("./x.product");
  EXPECT_EQ(project_.ProductFolder(), folder);
}

TEST_F(ModProjectTest, WritesNothingForWhatIsGone) {
  product_.AddComponent("A", {});
  folder_.Write(product_.kComponentFile, "[Files]\nCount=0\n");  // without a title
  for (const char* gone : {"", product_.kComponentFile, product_.kVersionFile}) {
    if (*gone != '\0') tools::DeleteFile(folder_.Path(gone));
    for (const std::int32_t slot : {1, 2}) {
      EXPECT_THROW(project_.WriteComponentSetting(1, slot, "Files", "Count", "1"), tools::Error);
    }
  }
  for (const std::int32_t slot : {1, 2}) {
    EXPECT_THROW(project_.WriteVersionSetting(slot, "Tessel", "Key", "k"), tools::Error);
  }
  tools::DeleteFile(project_.ProductPath());
  EXPECT_THROW(project_.SetProductTitle("neu"), tools::Error);
  EXPECT_TRUE(tools::FindFiles(folder_.Path(), "*", tools::Subfolders::Search).empty());
}

TEST_F(ModProjectTest, EnumeratesSlotsUpToTheCountWithoutFreeOnes) {
  product_.WriteVersions("Count=3\nVer1=1.0.0\nVer2=\nVer3=1.2.0\nVer4=9.9.9\n");
  EXPECT_THAT(project_.VersionSlots(), ElementsAre(1, 3));
  EXPECT_EQ(project_.VersionCount(), 3);
  for (const char* title : {"A", "", "C"}) product_.AddComponent(title, {});
  EXPECT_THAT(project_.ComponentSlots(1), ElementsAre(1, 3));
  // Found in the folder's listing, not by 10,000 looks at files.
  project_.WriteVersionSetting(1, "Components", "Count", "10000");
  EXPECT_THAT(project_.PossibleComponentSlots(1), ElementsAre(1, 2, 3));
  for (const char* count : {"", "Count=\n"}) {
    product_.WriteVersions(count + std::string("Ver1=1\n"));
    EXPECT_EQ(project_.VersionCount(), 0) << count;
  }
  for (const std::string count : {"Count=-5", "Count=99999999999", "Count=viele"}) {
    product_.WriteVersions(count + "\n");
    EXPECT_THAT(ErrorOf([&] { (void)project_.VersionSlots(); }),
                EndsWith("Probe.product ([Versions] " + count + ")"));
    product_.WriteVersions("Count=1\nVer1=1.0.0\n");
    folder_.Write("Produkt/Version 1.0.0/product.version", "[Components]\n" + count + "\n");
    EXPECT_THAT(ErrorOf([&] { (void)project_.ComponentSlots(1); }),
                EndsWith("product.version ([Components] " + count + ")"));
  }
}

TEST_F(ModProjectTest, FindsTheSlotsOfAnAbsurdCount) {
  product_.WriteVersions(
      "Count=2147483647\nver7=1.0.0\nVer007=2.0.0\nVer2147483647=3.0.0\nVer8=\n");
  EXPECT_THAT(project_.VersionSlots(), ElementsAre(7, 2147483647));
  folder_.Write("Produkt/Version 1.0.0/product.version", "[Components]\nCount=2000000000\n");
  for (const char* slot : {"30", "1999999999", "2000000001"}) {
    folder_.Write(std::string("Produkt/Version 1.0.0/component") + slot + ".component",
                  "[Component]\nTitle=A\n");
  }
  folder_.Write("Produkt/Version 1.0.0/component31.component", "");
  EXPECT_THAT(project_.ComponentSlots(7), ElementsAre(30, 1999999999));
  EXPECT_THAT(SlotsNamedIn("Ver02=a\nVER3=b\n", "Ver", 9), ElementsAre(3));
}

TEST_F(ModProjectTest, StaysInTheProductFolderWhateverTheVersionText) {
  folder_.Write("product.version", "[Tessel]\nKey=outside\n");
  for (const char* text : {"x/../../..", "../..", "a\\b", "C:x", "x/y", "1\x01"}) {
    product_.WriteVersions(std::string("Count=1\nVer1=") + text + "\n");
    EXPECT_THROW((void)project_.ReadVersionSetting(1, "Tessel", "Key", "-"), tools::Error) << text;
    EXPECT_THROW((void)project_.ComponentTitle(1, 1), tools::Error) << text;
    EXPECT_THROW(project_.WriteVersionSetting(1, "Tessel", "Key", "v"), tools::Error) << text;
    EXPECT_THROW((void)project_.ComponentFilePath(1, 1), tools::Error) << text;
  }
  EXPECT_EQ(folder_.Read("product.version"), "[Tessel]\nKey=outside\n");
}

}  // namespace model
