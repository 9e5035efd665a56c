#include <gtest/gtest.h>

#include "model/ICFile.h"
#include "model/ModProject.h"
#include "tests/support/TestProduct.h"
#include "tools/Error.h"
#include "tools/Files.h"

namespace model {
namespace {

using Slots = std::vector<std::int32_t>;

class ModProjectTest : public testing::Test {
 protected:
  void WriteVersions(const std::string& text) {
    folder_.Write("Produkt/Probe.product", "[General]\nVersion=1.0\n[Versions]\n" + text);
  }

  tests::TemporaryFolder folder_;
  tests::TestProduct product_{folder_};
  ModProject& project_ = product_.Project();
};

TEST_F(ModProjectTest, KeepsSettingsInTheFilesOfProductVersionAndComponent) {
  project_.WriteVersionSetting(1, "Tessel", "Key", "k");
  project_.WriteComponentSetting(1, 12, "Component", "Title", "Hilfe");
  EXPECT_EQ(folder_.Read("Produkt/Version 1.0.0/product.version"), "[Tessel]\nKey=k\n");
  EXPECT_EQ(folder_.Read("Produkt/Version 1.0.0/component12.component"),
            "[Component]\nTitle=Hilfe\n");
  EXPECT_EQ(project_.ReadVersionSetting(1, "Tessel", "Key", "-"), "k");
  EXPECT_EQ(project_.ReadVersionSetting(2, "Tessel", "Key", "-"), "-");
  EXPECT_EQ(project_.ComponentTitle(1, 12), "Hilfe");
  EXPECT_EQ(project_.ProductTitle(), "Probe");
}

TEST_F(ModProjectTest, KnowsItsFormatByTheExactText) {
  EXPECT_TRUE(project_.HasKnownFormat(project_.ProductPath()));
  EXPECT_FALSE(project_.HasKnownFormat(folder_.Write("a.product", "[General]\nVersion=1.00\n")));
  EXPECT_FALSE(project_.HasKnownFormat(folder_.Path("missing.product")));
}

TEST_F(ModProjectTest, WritesAndReadsNothingWhileNoProductIsOpen) {
  const std::string before = folder_.Read("Produkt/Probe.product");
  project_.SetProductPath("");
  project_.SetProductTitle("Anders");
  project_.WriteVersionSetting(1, "Tessel", "Key", "k");
  project_.WriteComponentSetting(1, 1, "Component", "Title", "t");
  EXPECT_EQ(project_.ReadComponentSetting(1, 1, "Component", "Title", "-"), "-");
  EXPECT_EQ(project_.VersionFilePath(1), "");
  EXPECT_EQ(folder_.Read("Produkt/Probe.product"), before);
  EXPECT_FALSE(folder_.Holds("Produkt/Version 1.0.0/product.version"));
}

TEST_F(ModProjectTest, EnumeratesSlotsUpToTheCountWithoutFreeOnes) {
  WriteVersions("Count=3\nVer1=1.0.0\nVer2=\nVer3=1.2.0\nVer4=9.9.9\n");
  EXPECT_EQ(project_.VersionSlots(), (Slots{1, 3}));
  EXPECT_EQ(project_.VersionCount(), 3);
  product_.AddComponent("A", {});
  product_.AddComponent("", {});
  product_.AddComponent("C", {});
  EXPECT_EQ(project_.ComponentSlots(1), (Slots{1, 3}));
}

TEST_F(ModProjectTest, CountsNothingWhereTheCountIsAbsentOrNoCount) {
  for (const char* text : {"", "Count=\n", "Count=-5\nVer1=1\n", "Count=viele\nVer1=1\n",
                           "Count=99999999999\nVer1=1\n"}) {
    WriteVersions(text);
    EXPECT_EQ(project_.VersionCount(), 0) << text;
    EXPECT_EQ(project_.VersionSlots(), Slots{}) << text;
  }
}

TEST_F(ModProjectTest, FindsTheSlotsOfAnAbsurdCount) {
  WriteVersions("Count=2147483647\nver7=1.0.0\nVer007=2.0.0\nVer2147483647=3.0.0\nVer8=\n");
  EXPECT_EQ(project_.VersionSlots(), (Slots{7, 2147483647}));
  project_.WriteVersionSetting(7, "Components", "Count", "2000000000");
  project_.WriteComponentSetting(7, 30, "Component", "Title", "A");
  project_.WriteComponentSetting(7, 1999999999, "Component", "Title", "B");
  project_.WriteComponentSetting(7, 2000000001, "Component", "Title", "above the count");
  project_.WriteComponentSetting(7, 31, "Component", "Title", "");
  EXPECT_EQ(project_.ComponentSlots(7), (Slots{30, 1999999999}));
}

TEST_F(ModProjectTest, StaysInTheProductFolderWhateverTheVersionText) {
  folder_.Write("product.version", "[Tessel]\nKey=outside\n");
  for (const char* text : {"x/../../..", "../..", "a\\b", "C:x", "x/y", "1\x01"}) {
    WriteVersions(std::string("Count=1\nVer1=") + text + "\n");
    EXPECT_EQ(project_.ReadVersionSetting(1, "Tessel", "Key", "-"), "-") << text;
    EXPECT_EQ(project_.ReadComponentSetting(1, 1, "Component", "Title", "-"), "-") << text;
    EXPECT_THROW(project_.WriteVersionSetting(1, "Tessel", "Key", "v"), tools::Error) << text;
    EXPECT_THROW((void)project_.ComponentFilePath(1, 1), tools::Error) << text;
  }
  EXPECT_EQ(folder_.Read("product.version"), "[Tessel]\nKey=outside\n");
}

TEST_F(ModProjectTest, ProposesAnOutputFolderForEachConfiguration) {
  EXPECT_EQ(project_.DefaultOutputFolder(1), folder_.Path("Produkt/Ausgabe/Debug"));
  EXPECT_EQ(project_.DefaultOutputFolder(2), folder_.Path("Produkt/Ausgabe/Release"));
  EXPECT_EQ(project_.DefaultOutputFolder(3), folder_.Path("Produkt/Ausgabe/"));
}

TEST_F(ModProjectTest, TakesARelativeProductPathFromTheCurrentFolder) {
  project_.SetProductPath("x.product");
  EXPECT_TRUE(tools::IsAbsolutePath(project_.ProductFolder()));
}

class ICFileTest : public ModProjectTest {
 protected:
  ICFile Read(const std::string& section) {
    folder_.Write("c.component", "[Files]\nCount= 2 Stück\n[File1]\n" + section);
    const auto file = product_.Store().Load(folder_.Path("c.component"));
    const SettingReader read = [&](auto s, auto k, auto d) { return file->Read(s, k, d); };
    EXPECT_EQ(ReadFileCount(read), 2);
    return ReadFileEntry(read, 1, kEditorDefaultType);
  }
};

TEST_F(ICFileTest, StoresFourteenKeysInTheirOrder) {
  ICFile entry{"{id}", 2, "C:\\q", "*.*", -1, 2004, "D:\\z", "n", 3, 4, 5, 6, 7, 0};
  product_.AddComponent("A", {ICFile{}, entry});
  const std::string stored = folder_.Read("Produkt/Version 1.0.0/component1.component");
  EXPECT_NE(stored.find("[File2]\nType=2\nExclude=3\nID={id}\nIncludeChildren=-1\nOverwrite=6\n"
                        "Permanent=4\nRegisterPath=7\nSelfRegisterDLL=5\nSourceName=*.*\n"
                        "SourcePath=C:\\q\nTargetFolder=2004\nTargetName=n\n"
                        "TargetSubFolder=D:\\z\nVital=0\n"),
            std::string::npos)
      << stored;
  const ICFile read = Read(stored.substr(stored.find("Type=2")));
  EXPECT_EQ(read.TargetFolder, 2004);
  EXPECT_EQ(read.IncludeChildren, -1);
  EXPECT_EQ(read.TargetSubFolder, "D:\\z");
  EXPECT_EQ(read.RegisterPath, 7);
}

TEST_F(ICFileTest, ReadsMissingAndOddValuesLeniently) {
  const ICFile empty = Read("");
  EXPECT_EQ(empty.Type, 0);
  EXPECT_EQ(empty.Vital, 1);
  const ICFile odd = Read("Vital=nein\nOverwrite=2.5\nExclude=1.5 \nTargetFolder=38abc\n");
  EXPECT_EQ(odd.Vital, 0);
  EXPECT_EQ(odd.Overwrite, 2);
  EXPECT_EQ(odd.Exclude, 2);
  EXPECT_EQ(odd.TargetFolder, 38);
}

TEST_F(ICFileTest, RefusesNumbersThatDoNotFit) {
  EXPECT_EQ(Read("Overwrite=-32768\nTargetFolder=2147483647\n").Overwrite, -32768);
  EXPECT_THROW(Read("Overwrite=32768\n"), tools::Error);
  EXPECT_THROW(Read("TargetFolder=2147483648\n"), tools::Error);
}

}  // namespace
}  // namespace model
