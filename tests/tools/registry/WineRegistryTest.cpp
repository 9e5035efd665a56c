#include "tests/support/Testing.h"
#include "tools/registry/WineRegistry.h"

namespace tools {

// As Wine 8 writes its files.
static constexpr const char* kSystem = R"(WINE REGISTRY Version 2
;; All keys relative to REGISTRY\\Machine

#arch=win64
[Software\\Classes\\.ai] 1795237798
"Content Type"="application/postscript"

[Software\\Quillon\\\[Klammer\] \xdc=1] 1795238516
@="std"

[Software\\Quillon\\Tessel\\AppTypes\\1] 1795238516
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

TEST(WineRegistryTest, ListsWhatAKeyHolds) {
  const WineRegistryFile file(kSystem);
  EXPECT_THAT(file.SubkeyNames(""), ElementsAre("Software", "System"));
  EXPECT_THAT(file.SubkeyNames("software\\QUILLON"),
              ElementsAre("[Klammer] Ü=1", "Tessel", "Tessel Extra"));
  EXPECT_THAT(file.SubkeyNames("\\Software\\Quillon\\Tessel\\"), ElementsAre("AppTypes"));
  EXPECT_THAT(file.SubkeyNames("Software\\Quillon\\Tess"), ElementsAre());
  EXPECT_THAT(file.SubkeyNames("System"), ElementsAre());
  EXPECT_THAT(WineRegistryFile("REGEDIT4\n[a] 1\n").SubkeyNames(""), ElementsAre());

  EXPECT_THAT(file.ValueNames("SOFTWARE\\Quillon\\Tessel\\AppTypes\\1"),
              ElementsAre("Bin", "Büro \"X\" \\ 漢", "😀 tab\tbell\a"));
  EXPECT_THAT(file.ValueNames("Software\\Quillon\\[klammer] ü=1"), ElementsAre());
  EXPECT_THAT(file.ValueNames("Software\\Quillon\\Tessel"), ElementsAre("Path"));
}

TEST(WineRegistryTest, FindsRootsInTheirFiles) {
  using Root = RegistryRoot;
  const TemporaryFolder folder;
  WineRegistry registry(folder.Path());
  for (const auto& [root, name] : kRegistryRoots) {
    EXPECT_THAT(registry.SubkeyNames(root, ""), ElementsAre()) << name;
  }
  folder.Write("system.reg", kSystem);
  folder.Write("userdef.reg", "WINE REGISTRY Version 2\n\n[Software\\\\Wine] 1\n\"a\"=\"b\"\n");
  EXPECT_THAT(registry.SubkeyNames(Root::ClassesRoot, ""), ElementsAre(".ai"));
  EXPECT_THAT(registry.ValueNames(Root::ClassesRoot, ".AI"), ElementsAre("Content Type"));
  EXPECT_THAT(registry.SubkeyNames(Root::LocalMachine, ""), ElementsAre("Software", "System"));
  EXPECT_THAT(registry.SubkeyNames(Root::CurrentUser, ""), ElementsAre());
  EXPECT_THAT(registry.SubkeyNames(Root::Users, ""), ElementsAre(".Default"));
  EXPECT_THAT(registry.ValueNames(Root::Users, ".default\\software\\wine"), ElementsAre("a"));
  EXPECT_THAT(registry.SubkeyNames(Root::Users, "Other\\Software"), ElementsAre());

  folder.Write("system.reg", "WINE REGISTRY Version 2\n[Hardware] 1\n");
  EXPECT_THAT(registry.SubkeyNames(Root::LocalMachine, ""), ElementsAre("Hardware"));
}

}  // namespace tools
