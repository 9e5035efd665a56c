#include <gtest/gtest.h>
#include <stdlib.h>

#include "tests/support/TemporaryFolder.h"
#include "tools/Error.h"
#include "tools/Registry.h"

namespace tools {
namespace {

constexpr RegistryRoot kUser = RegistryRoot::CurrentUser;

TEST(RegistryTest, RootsAreFoundByTheirExactNames) {
  EXPECT_EQ(FindRegistryRoot("HKEY_LOCAL_MACHINE"), RegistryRoot::LocalMachine);
  for (const char* name : {"", "HKEY_LOCAL", "hkey_local_machine", "HKEY_USERS "}) {
    EXPECT_FALSE(FindRegistryRoot(name)) << name;
  }
}

TEST(RegistryTest, ValuesAreKeptFromOneRunToTheNext) {
  const tests::TemporaryFolder folder;
  setenv("HOME", folder.Path().c_str(), 1);
  setenv("XDG_CONFIG_HOME", folder.Path("config").c_str(), 1);
  SystemDisk disk;
  const std::string key = "Software\\Quillon\\[Öl] 50%=a;b ";
  {
    const auto registry = OpenSystemRegistry(disk);
    EXPECT_EQ(registry->Read(kUser, key, "LastAuthor", "none"), "none");
    registry->Write(kUser, key, "LastAuthor", " Jürgen \"J\" ");
    registry->Write(kUser, key, "", "default");
    registry->Write(kUser, key, "@", "at");
    registry->Write(kUser, "", " =[;\n", "odd");
    EXPECT_THROW(registry->Write(kUser, key, "LastAuthor", "two\nlines"), Error);
  }
  const auto registry = OpenSystemRegistry(disk);
  EXPECT_EQ(registry->Read(kUser, "\\SOFTWARE\\quillon\\[öL] 50%=a;b \\", "LASTAUTHOR", ""),
            " Jürgen \"J\" ");
  EXPECT_EQ(registry->Read(kUser, key, "", ""), "default");
  EXPECT_EQ(registry->Read(kUser, key, "@", ""), "at");
  EXPECT_EQ(registry->Read(kUser, "", " =[;\n", ""), "odd");
  EXPECT_EQ(registry->Read(RegistryRoot::LocalMachine, key, "LastAuthor", "none"), "none");
}

}  // namespace
}  // namespace tools
