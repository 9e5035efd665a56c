// Links exist for every user only on POSIX systems.
#include <filesystem>

#include "setup/Setup.h"
#include "setup/TestInstallation.h"
#include "tests/support/Testing.h"
#include "tools/files/Path.h"

namespace setup {

TEST(HostileSetup, CannotShowFilesFromOutsideByALink) {
  const tests::TemporaryFolder folder;
  folder.Write("geheim.txt", "geheim");
  folder.MakeFolder("setup");
  std::filesystem::create_symlink("../geheim.txt", tools::ToPath(folder.Path("setup/link.txt")));
  std::filesystem::create_directory_symlink("..", tools::ToPath(folder.Path("setup/ordner")));
  setup::Setup setup;
  setup.folder = folder.Path("setup");
  for (const char* stored : {"link.txt", "ordner\\geheim.txt"}) {
    PlannedFile file;
    file.stored = stored;
    EXPECT_THAT(
        tests::ErrorOf([&] { ContentReader(setup).Read(file, [](std::string_view) { FAIL(); }); }),
        testing::HasSubstr("führt aus dem Setup hinaus"));
  }
}

TEST(HostileSetup, IsNotInstalledThroughALink) {
  const tests::TemporaryFolder folder;
  folder.MakeFolder("anderswo");
  std::filesystem::create_directory_symlink("anderswo", tools::ToPath(folder.Path("link")));
  std::filesystem::create_symlink("nirgends", tools::ToPath(folder.Path("tot")));
  EXPECT_FALSE(IsFreeFolder(folder.Path("tot")));
  EXPECT_TRUE(IsFreeFolder(folder.Path("link")));  // the user's own choice of a folder
}

}  // namespace setup
