#include <sys/stat.h>

#include "tests/support/WithoutRights.h"
#include "tools/settings/SettingsStore.h"

namespace tools {

using tests::ErrorWithoutRights;

TEST(ProtectedSettingsTest, AReadOnlyFolderOrFileIsAnErrorThatNamesIt) {
  const std::pair<mode_t, mode_t> modes[] = {{0644, 0555}, {0444, 0777}};
  for (const auto& [fileMode, folderMode] : modes) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.product", "[A]\nb=alt\n");
    ::chmod(path.c_str(), fileMode);
    ::chmod(folder.Path().c_str(), folderMode);
    SystemDisk disk;
    const std::string error =
        ErrorWithoutRights([&] { SettingsStore(disk).Write(path, "A", "b", "neu"); });
    ::chmod(folder.Path().c_str(), 0755);
    EXPECT_THAT(error, EndsWith(": " + path + " (Zugriff verweigert)"));
    EXPECT_EQ(folder.Read("a.product"), "[A]\nb=alt\n");
    EXPECT_EQ(FindFiles(folder.Path(), "*", Subfolders::Search).size(), 1U);
  }
}

// What links lead to is locked, and not to be able to is an error.
TEST(ProtectedSettingsTest, AFolderThatCannotBeLockedIsAnErrorThatNamesIt) {
  const TemporaryFolder folder;
  const std::string file = folder.Write("echt/a.product", "");
  folder.MakeFolder("hier");
  std::filesystem::create_symlink(file, folder.Path("hier/a.product"));
  ::chmod(file.c_str(), 0666);
  ::chmod(folder.Path("echt").c_str(), 0333);
  SystemDisk disk;
  EXPECT_EQ(
      ErrorWithoutRights(
          [&] { SettingsStore(disk).Write(folder.Path("hier/a.product"), "A", "b", "neu"); }),
      "Der Ordner kann nicht gesperrt werden: " + folder.Path("echt") + " (Zugriff verweigert)");
}

}  // namespace tools
