#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/RegistryKeys.h"
#include "tools/SettingsFile.h"

namespace model {
namespace {

using testing::ElementsAre;

class RegistryKeysTest : public testing::Test {
 protected:
  void Write(const char* section, const std::string& key, const std::string& value) {
    file_.Write(section, key, value);
  }

  tools::SettingsFile file_;
  RegistryKeys keys_{
      [this](auto section, auto key, auto fallback) { return file_.Read(section, key, fallback); },
      [this](auto section, auto key, auto value) { file_.Write(section, key, value); },
      [this] { return file_.Render(); }};
};

TEST_F(RegistryKeysTest, StoresValuesInOrderAndLeavesThoseOfHigherNumbers) {
  EXPECT_TRUE(keys_.Store("HKEY_USERS\\Ä", {{"@", "x"}, {"Größe \"1\"", " y "}, {"", ""}}));
  EXPECT_FALSE(keys_.Store(" hkey_users\\ä ", {{"n", "1"}}));
  EXPECT_THAT(keys_.Paths(), ElementsAre("HKEY_USERS\\Ä"));
  EXPECT_THAT(keys_.ValuesOf("HKEY_USERS\\Ä"), ElementsAre(RegistryValue{"n", "1"}));
  EXPECT_EQ(file_.Read("RegKey1", "Val2Setting", ""), " y ");
}

TEST_F(RegistryKeysTest, TakingAFreedSlotHidesThoseAboveIt) {
  for (const char* path : {"A", "B", "C", "D", "E"}) keys_.Store(path, {});
  keys_.Free(" b ");
  EXPECT_THAT(keys_.Paths(), ElementsAre("A", "C", "D", "E"));
  keys_.Store("New", {{"n", "1"}});
  EXPECT_EQ(file_.Read("Registry", "Keys", ""), "2");
  EXPECT_THAT(keys_.Paths(), ElementsAre("A", "New"));
}

TEST_F(RegistryKeysTest, JoinsTheValuesOfSlotsWithTheSamePath) {
  Write("Registry", "Keys", "2");
  for (const char* slot : {"1", "2"}) {
    Write("Registry", std::string("Key") + slot, *slot == '1' ? "Key" : "KEY");
    Write((std::string("RegKey") + slot).c_str(), "Values", "1");
    Write((std::string("RegKey") + slot).c_str(), "Val1Name", std::string(" n ") + slot);
  }
  EXPECT_THAT(keys_.ValuesOf("key"),
              ElementsAre(RegistryValue{"n 1", ""}, RegistryValue{"n 2", ""}));
  keys_.Free("key");
  EXPECT_THAT(keys_.Paths(), ElementsAre());
}

TEST_F(RegistryKeysTest, CopesWithAnyStoredCount) {
  Write("Registry", "Keys", "2147483647");
  Write("Registry", "Key2000000000", "Far");
  Write("Registry", "key1", "Near");
  Write("RegKey1", "Values", "2000000000");
  Write("RegKey1", "val70000name", "v");
  EXPECT_THAT(keys_.Paths(), ElementsAre("Near", "Far"));
  EXPECT_THAT(keys_.ValuesOf("Near"), ElementsAre(RegistryValue{"v", ""}));
  keys_.Store("New", {});
  EXPECT_EQ(file_.Read("Registry", "Key2", ""), "New");
  for (const char* bad : {"-1", "99999999999", "viele"}) {
    Write("Registry", "Keys", bad);
    EXPECT_THAT(keys_.Paths(), ElementsAre());
  }
}

TEST(RegistryPathTest, ReadsWhatTheAuthorTyped) {
  const auto parts = [](const char* text) {
    const RegistryPath path = ParseRegistryPath(text, "Arbeitsplatz");
    return path.path + "|" + path.hive + "|" + path.subkey;
  };
  EXPECT_EQ(parts(" \t "), "||");
  EXPECT_EQ(parts("Arbeitsplatz"), "Arbeitsplatz|Arbeitsplatz|");
  EXPECT_EQ(parts(" Arbeitsplatz\\HKEY_USERS\\a b\\c "), "HKEY_USERS\\a b\\c|HKEY_USERS|a b\\c");
  EXPECT_EQ(parts("Arbeitsplatz\\"), "||");
  EXPECT_EQ(parts("arbeitsplatz\\X"), "arbeitsplatz\\X|arbeitsplatz|X");
  EXPECT_EQ(parts("Arbeitsplatz漢字"), "字|字|");
  EXPECT_EQ(parts("X\\a\\"), "X\\a\\|X|a");
  EXPECT_EQ(parts("\\X"), "\\X||X");
}

TEST(RegistryPathTest, GoesDownAndUp) {
  EXPECT_EQ(JoinRegistryPath("", "X"), "X");
  EXPECT_EQ(JoinRegistryPath("X", "a"), "X\\a");
  EXPECT_EQ(JoinRegistryPath("X\\", ""), "X\\");
  EXPECT_EQ(ParentRegistryPath("X\\a\\b"), "X\\a");
  EXPECT_EQ(ParentRegistryPath("X"), "");
}

}  // namespace
}  // namespace model
