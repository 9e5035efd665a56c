#include <stdlib.h>

#include "tests/support/Testing.h"
#include "tools/registry/Registry.h"

namespace tools {

TEST(RegistryTest, RootsAreFoundByTheirExactNames) {
  EXPECT_EQ(FindRegistryRoot("HKEY_LOCAL_MACHINE"), RegistryRoot::LocalMachine);
  for (const char* name : {"", "HKEY_LOCAL", "hkey_local_machine", "HKEY_USERS "}) {
    EXPECT_FALSE(FindRegistryRoot(name)) << name;
  }
}

TEST(RegistryTest, ValuesAreKeptFromOneRunToTheNext) {
  constexpr RegistryRoot kUser = RegistryRoot::CurrentUser;
  const std::string key = "Software\\Quillon\\[Öl] 50%=a;b ";
  const TemporaryFolder folder;
  setenv("XDG_CONFIG_HOME", folder.Path("config").c_str(), 1);
  SystemDisk disk;
  const auto first = OpenSystemRegistry(disk);
  EXPECT_EQ(first->Read(kUser, key, "LastAuthor", "none"), "none");
  first->Write(kUser, key, "LastAuthor", " Jürgen \"J\" ");
  first->Write(kUser, key, "", "default");
  first->Write(kUser, key, "@", "at");
  first->Write(kUser, "", " =[;\n", "odd");
  EXPECT_THROW(first->Write(kUser, key, "LastAuthor", "two\nlines"), Error);

  const auto next = OpenSystemRegistry(disk);
  EXPECT_EQ(next->Read(kUser, "\\SOFTWARE\\quillon\\[öL] 50%=a;b \\", "LASTAUTHOR", ""),
            " Jürgen \"J\" ");
  EXPECT_EQ(next->Read(kUser, key, "", ""), "default");
  EXPECT_EQ(next->Read(kUser, key, "@", ""), "at");
  EXPECT_EQ(next->Read(kUser, "", " =[;\n", ""), "odd");
  EXPECT_EQ(next->Read(RegistryRoot::LocalMachine, key, "LastAuthor", "none"), "none");
}

}  // namespace tools
