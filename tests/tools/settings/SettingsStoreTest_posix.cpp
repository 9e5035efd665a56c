#include <sys/stat.h>

#include <filesystem>

#include "tests/support/WithoutRights.h"
#include "tools/files/FindFiles.h"
#include "tools/settings/SettingsStore.h"

namespace tools {

using tests::ErrorWithoutRights;

TEST(ProtectedSettingsTest, AReadOnlyFolderOrFileIsAnErrorThatNamesItAndKeepsTheFile) {
  const std::pair<mode_t, mode_t> modes[] = {{0644, 0555}, {0444, 0777}};
  for (const auto& [fileMode, folderMode] : modes) {
    const tests::TemporaryFolder folder;
    const std::string path = folder.Write("a.product", "[A]\nb=alt\n");
    ::chmod(path.c_str(), fileMode);
    ::chmod(folder.Path().c_str(), folderMode);
    SystemDisk disk;
    const std::string error =
        ErrorWithoutRights([&] { SettingsStore(disk).Write(path, "A", "b", "neu"); });
    ::chmod(folder.Path().c_str(), 0755);
    EXPECT_THAT(error, testing::EndsWith(": " + path + " (Zugriff verweigert)"));
    EXPECT_EQ(folder.Read("a.product"), "[A]\nb=alt\n");
    EXPECT_EQ(FindFiles(folder.Path(), "*", true).size(), 1U);
  }
}

// What links lead to is locked, and not to be able to is an error.
TEST(ProtectedSettingsTest, AFolderThatCannotBeLockedIsAnErrorThatNamesIt) {
  const tests::TemporaryFolder folder;
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

// Neither a file nor a folder that may not be looked into counts as one that is not there.
TEST(ProtectedSettingsTest, AnUnreadableFileIsAnErrorForReadersUntilItCanBeRead) {
  const tests::TemporaryFolder folder;
  const std::string path = folder.Write("ordner/a.product", "[A]\nb=alt\n");
  SystemDisk disk;
  SettingsStore store(disk);
  const std::pair<std::string, mode_t> locks[] = {{path, 0644}, {folder.Path("ordner"), 0755}};
  for (const auto& [locked, before] : locks) {
    ::chmod(locked.c_str(), 0);
    EXPECT_THAT(ErrorWithoutRights([&] { (void)store.Read(path, "A", "b", ""); }),
                testing::HasSubstr(path + " (Zugriff verweigert)"));
    EXPECT_THAT(ErrorWithoutRights([&] { (void)store.Load(path); }), testing::HasSubstr(path));
    ::chmod(locked.c_str(), before);
    EXPECT_EQ(store.Read(path, "A", "b", ""), "alt");
    folder.Write("ordner/a.product", "[A]\nb=alt\n");
  }
  ::chmod(folder.Path("ordner").c_str(), 0);
  EXPECT_THAT(ErrorWithoutRights([&] { (void)FileExists(path); }), testing::HasSubstr(path));
  EXPECT_THAT(ErrorWithoutRights([&] { (void)FolderExists(path); }), testing::HasSubstr(path));
}

}  // namespace tools
