#include "tests/support/Testing.h"
#include "tools/Guid.h"
#include "tools/WindowsApi.h"
#include "tools/registry/Registry.h"

namespace tools {

TEST(RegistryTest, TheSystemKeepsValues) {
  constexpr RegistryRoot kUser = RegistryRoot::CurrentUser;
  const std::string key = "Software\\PackwrightTest-" + NewGuidText();
  SystemDisk disk;
  const auto registry = OpenSystemRegistry(disk);
  EXPECT_EQ(registry->Read(kUser, key, "Autor", "none"), "none");
  const std::string longText(3000, 'x');
  registry->Write(kUser, key, "Autor", "Jürgen 漢");
  registry->Write(kUser, key, "", "default");
  registry->Write(kUser, key + "\\Öl\\a", "Lang", longText);
  registry->Write(kUser, key + "\\b\\", "Lang", "");

  EXPECT_EQ(registry->Read(kUser, "\\" + key + "\\", "AUTOR", ""), "Jürgen 漢");
  EXPECT_EQ(registry->Read(kUser, key, "", ""), "default");
  EXPECT_EQ(registry->Read(kUser, key + "\\öl\\a", "Lang", ""), longText);
  EXPECT_EQ(registry->Read(kUser, key + "\\b", "Lang", "none"), "");
  EXPECT_THAT(registry->SubkeyNames(kUser, key), ElementsAre("b", "Öl"));
  EXPECT_THAT(registry->ValueNames(kUser, key), ElementsAre("Autor"));
  EXPECT_THAT(registry->SubkeyNames(kUser, key + "\\missing"), ElementsAre());
  EXPECT_THAT(registry->SubkeyNames(RegistryRoot::DynData, ""), ElementsAre());
  EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, ToWide(key).c_str()), ERROR_SUCCESS);
}

}  // namespace tools
