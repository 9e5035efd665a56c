#include "model/RegistryKeys.h"
#include "tests/support/Testing.h"
#include "tools/settings/SettingsFile.h"

namespace model {

class RegistryKeysTest : public testing::Test {
 protected:
  void SetText(const std::string& text) { file_ = std::make_unique<tools::SettingsFile>(text); }

  std::unique_ptr<tools::SettingsFile> file_ = std::make_unique<tools::SettingsFile>();
  RegistryKeys keys_{
      [this](auto section, auto key, auto fallback) { return file_->Read(section, key, fallback); },
      [this](auto section, auto key, auto value) { file_->Write(section, key, value); },
      {.path = [] { return "K.component"; }, .text = [this] { return file_->Render(); }}};
};

TEST_F(RegistryKeysTest, LeavesValuesOfHigherNumbers) {
  keys_.Store("HKEY_USERS\\Ä", {{"@", "x"}, {"Größe \"1\"", " y "}, {"", ""}});
  keys_.Store(" hkey_users\\ä ", {{"n", "1"}});
  EXPECT_THAT(keys_.Paths(), ElementsAre("HKEY_USERS\\Ä"));
  EXPECT_THAT(keys_.ValuesOf("HKEY_USERS\\Ä"), ElementsAre(RegistryValue{"n", "1"}));
  EXPECT_EQ(file_->Read("RegKey1", "Val2Setting", ""), " y ");
}

// A slot that was freed is taken again, which hides those above it.
TEST_F(RegistryKeysTest, FreesEverySlotOfAKey) {
  SetText(
      "[Registry]\nKeys=4\nKey1=A\nKey2=Key\nKey3=KEY\nKey4=D\n"
      "[RegKey2]\nValues=1\nVal1Name=\" n 1\"\n[RegKey3]\nValues=1\nVal1Name=n 2\n");
  EXPECT_THAT(keys_.ValuesOf("key"),
              ElementsAre(RegistryValue{"n 1", ""}, RegistryValue{"n 2", ""}));
  keys_.Free(" key ");
  EXPECT_THAT(keys_.Paths(), ElementsAre("A", "D"));
  keys_.Store("New", {});
  EXPECT_THAT(keys_.Paths(), ElementsAre("A", "New"));
}

TEST_F(RegistryKeysTest, StoresIntoTheFirstOfEqualSlots) {
  SetText("[Registry]\nKeys=3\nKey1=A\nKey2=B\nKey3=b\n");
  keys_.Store("b", {{"n", "1"}});
  EXPECT_EQ(file_->Read("RegKey2", "Val1Name", "") + file_->Read("RegKey3", "Val1Name", "-"), "n-");
}

TEST_F(RegistryKeysTest, CopesWithAnyStoredCount) {
  SetText(
      "[Registry]\nKeys=2147483647\nKey2000000000=Far\nkey1=Near\n"
      "[RegKey1]\nValues=2000000000\nval70000name=v\n");
  EXPECT_THAT(keys_.Paths(), ElementsAre("Near", "Far"));
  EXPECT_THAT(keys_.ValuesOf("Near"), ElementsAre(RegistryValue{"v", ""}));
  keys_.Store("New", {});
  EXPECT_EQ(file_->Read("Registry", "Key2", ""), "New");
  SetText("[Registry]\nKey1=A\nKeys=viele");
  EXPECT_EQ(tests::ErrorOf([this] { (void)keys_.Paths(); }),
            "Die Anzahl ist ungültig: K.component ([Registry] Keys=viele)");
  SetText("[Registry]\nKeys=1\nKey1=A\n[RegKey1]\nValues=99999999999");
  EXPECT_EQ(ErrorOf([this] { (void)keys_.ValuesOf("A"); }),
            "Die Anzahl ist ungültig: K.component ([RegKey1] Values=99999999999)");
}

TEST(RegistryPathTest, ReadsWhatTheAuthorTyped) {
  const std::pair<const char*, const char*> rows[] = {
      {" \t ", "||"},
      {"Arbeitsplatz", "Arbeitsplatz|Arbeitsplatz|"},
      {" Arbeitsplatz\\HKEY_USERS\\a b\\c ", "HKEY_USERS\\a b\\c|HKEY_USERS|a b\\c"},
      {"Arbeitsplatz\\", "||"},
      {"arbeitsplatz\\X", "arbeitsplatz\\X|arbeitsplatz|X"},
      {"Arbeitsplatz漢字", "字|字|"},
      {"X\\a\\", "X\\a\\|X|a"},
      {"\\X", "\\X||X"}};
  for (const auto& [text, parts] : rows) {
    const RegistryPath path = ParseRegistryPath(text, "Arbeitsplatz");
    EXPECT_EQ(path.path + "|" + path.hive + "|" + path.subkey, parts);
  }
  EXPECT_EQ(JoinRegistryPath("", "X"), "X");
  EXPECT_EQ(JoinRegistryPath("X", "a"), "X\\a");
  EXPECT_EQ(JoinRegistryPath("X\\", ""), "X\\");
  EXPECT_EQ(ParentRegistryPath("X\\a\\b"), "X\\a");
  EXPECT_EQ(ParentRegistryPath("X"), "");
}

}  // namespace model
