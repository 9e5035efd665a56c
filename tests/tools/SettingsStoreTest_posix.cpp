#include <sys/stat.h>
#include <unistd.h>

#include "tests/support/Testing.h"
#include "tools/SettingsStore.h"

namespace tools {

// Rights do not bind the superuser, who acts here as a user without any.
TEST(ProtectedSettingsTest, AReadOnlyFolderOrFileIsAnErrorThatNamesItAndKeepsTheFile) {
  constexpr uid_t kNobody = 65534;
  const bool superuser = ::geteuid() == 0;
  const std::pair<mode_t, mode_t> modes[] = {{0644, 0555}, {0444, 0777}};
  for (const auto& [fileMode, folderMode] : modes) {
    const tests::TemporaryFolder folder;
    const std::string path = folder.Write("a.product", "[A]\nb=alt\n");
    ::chmod(path.c_str(), fileMode);
    ::chmod(folder.Path().c_str(), folderMode);
    ASSERT_EQ(superuser ? ::seteuid(kNobody) : 0, 0);
    SystemDisk disk;
    const std::string error =
        tests::ErrorOf([&] { SettingsStore(disk).Write(path, "A", "b", "neu"); });
    ASSERT_EQ(superuser ? ::seteuid(0) : 0, 0);
    ::chmod(folder.Path().c_str(), 0755);
    EXPECT_THAT(error, testing::HasSubstr(folder.Path()));
    EXPECT_THAT(error, testing::EndsWith("(Zugriff verweigert)"));
    EXPECT_EQ(folder.Read("a.product"), "[A]\nb=alt\n");
    EXPECT_EQ(FindFiles(folder.Path(), "*", true).size(), 1U);
  }
}

}  // namespace tools
