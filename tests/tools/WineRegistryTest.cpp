#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "tools/WineRegistry.h"

namespace tools {
namespace {

using Names = std::vector<std::string>;

// As Wine 8 writes its files.
constexpr const char* kSystem = R"(WINE REGISTRY Version 2
;; All keys relative to REGISTRY\\Machine

#arch=win64

[Software\\Classes\\.ai] 1795237798
#time=1dd79768dd7c98e
"Content Type"="application/postscript"

[Software\\Quillon\\\[Klammer\] \xdc=1] 1795238516
#time=1dd797839da0764
@="std"

[Software\\Quillon\\Tessel\\AppTypes\\1] 1795238516
#time=1dd797839c8d7a0
"Bin"=hex:00,01,02,03,04,05,06,07,08,09,0a,0b,0c,0d,0e,0f,10,11,12,13,14,15,16,\
  17,18,19,1a,1b,1c,1d,1e,1f,20,21,22,23,24,25,26,27,28,29,2a,2b,2c,2d,2e,2f
"B\xfcro \"X\" \\ \x6f22"="a\"b\\c"
@="default"
"\xd83d\xde00 tab\tbell\7"=dword:00000005

[Software\\Quillon\\Tessel Extra] 1795238516
[Software\\Quillon\\Tessel] 1795238516
"Path"=str(2):"%PATH%"

[System] 1795238516
)";

TEST(WineRegistryTest, ListsKeysBelowAKeyWithAndWithoutLinesOfTheirOwn) {
  const WineRegistryFile file(kSystem);
  EXPECT_EQ(file.SubkeyNames(""), (Names{"Software", "System"}));
  EXPECT_EQ(file.SubkeyNames("software\\QUILLON"),
            (Names{"[Klammer] Ü=1", "Tessel", "Tessel Extra"}));
  EXPECT_EQ(file.SubkeyNames("\\Software\\Quillon\\Tessel\\"), (Names{"AppTypes"}));
  EXPECT_EQ(file.SubkeyNames("Software\\Quillon\\Tess"), (Names{}));
  EXPECT_EQ(file.SubkeyNames("System"), (Names{}));
}

TEST(WineRegistryTest, ListsTheNamesOfValues) {
  const WineRegistryFile file(kSystem);
  EXPECT_EQ(file.ValueNames("SOFTWARE\\Quillon\\Tessel\\AppTypes\\1"),
            (Names{"Bin", "Büro \"X\" \\ 漢", "😀 tab\tbell\a"}));
  EXPECT_EQ(file.ValueNames("Software\\Quillon\\[klammer] ü=1"), (Names{}));
  EXPECT_EQ(file.ValueNames("Software\\Quillon\\Tessel"), (Names{"Path"}));
  EXPECT_EQ(file.ValueNames("Software"), (Names{}));
}

TEST(WineRegistryTest, SurvivesDamagedFiles) {
  const std::string content = kSystem;
  for (std::size_t size = 0; size < content.size(); ++size) {
    const WineRegistryFile file(content.substr(0, size));
    EXPECT_LE(file.SubkeyNames("Software\\Quillon").size(), 3U);
    (void)file.ValueNames("Software\\Quillon\\Tessel\\AppTypes\\1");
  }
  const WineRegistryFile broken(
      "WINE REGISTRY Version 2\n[\\xd800\\\\\\\\a\\0b] 1\n[open\n[]\n[x\\");
  EXPECT_LE(broken.SubkeyNames("").size(), 2U);
  EXPECT_EQ(WineRegistryFile("REGEDIT4\n[a] 1\n").SubkeyNames(""), (Names{}));
}

TEST(WineRegistryTest, FindsRootsInTheirFilesAndSeesChanges) {
  const tests::TemporaryFolder folder;
  WineRegistry registry(folder.Path());
  for (const auto& [root, name] : kRegistryRoots)
    EXPECT_EQ(registry.SubkeyNames(root, ""), (Names{}));

  folder.Write("system.reg", kSystem);
  folder.Write("userdef.reg", "WINE REGISTRY Version 2\n\n[Software\\\\Wine] 1\n\"a\"=\"b\"\n");
  EXPECT_EQ(registry.SubkeyNames(RegistryRoot::ClassesRoot, ""), (Names{".ai"}));
  EXPECT_EQ(registry.ValueNames(RegistryRoot::ClassesRoot, ".AI"), (Names{"Content Type"}));
  EXPECT_EQ(registry.SubkeyNames(RegistryRoot::LocalMachine, "").size(), 2U);
  EXPECT_EQ(registry.SubkeyNames(RegistryRoot::CurrentUser, ""), (Names{}));
  EXPECT_EQ(registry.SubkeyNames(RegistryRoot::Users, ""), (Names{".Default"}));
  EXPECT_EQ(registry.ValueNames(RegistryRoot::Users, ".default\\software\\wine"), (Names{"a"}));
  EXPECT_EQ(registry.SubkeyNames(RegistryRoot::Users, "Other\\Software"), (Names{}));

  folder.Write("system.reg", "WINE REGISTRY Version 2\n[Hardware] 1\n");
  EXPECT_EQ(registry.SubkeyNames(RegistryRoot::LocalMachine, ""), (Names{"Hardware"}));
}

}  // namespace
}  // namespace tools
