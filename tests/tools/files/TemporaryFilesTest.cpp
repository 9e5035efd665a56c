#include "tests/support/Testing.h"
#include "tools/files/Files.h"
#include "tools/files/FindFiles.h"
#include "tools/files/Path.h"
#include "tools/files/TemporaryFiles.h"
#include "tools/settings/SettingsStore.h"

namespace tools {

class LeftoversTest : public testing::Test {
 protected:
  /// A temporary file or folder in the folder `place` that nobody holds, as a killed program
  /// leaves it.
  [[nodiscard]] std::string Leave(bool asFolder) const {
    std::string name = FileNamePart(TemporaryNameBeside("x"));
    if (asFolder) folder_.MakeFolder(name + "/tief");
    folder_.Write(asFolder ? name + "/tief/datei" : name, "Rest");
    return name;
  }

  tests::TemporaryFolder folder_;
};

TEST_F(LeftoversTest, GoOnlyWhenNobodyHoldsThemAndTheirNameIsOurs) {
  for (const bool asFolder : {false, true}) {
    const std::string name = Leave(asFolder);
    {
      const HeldTemporary held(folder_.Path(name));
      RemoveLeftovers(folder_.Path());
      EXPECT_TRUE(folder_.Holds(name));
    }
    RemoveLeftovers(folder_.Path());
    EXPECT_FALSE(folder_.Holds(name));
  }
  const char* const others[] = {
      ".packwright-0123456789abcde.tmp", ".packwright-0123456789ABCDEF.tmp",
      "packwright-0123456789abcdef.tmp", ".packwright-0123456789abcdef.tmp~"};
  for (const char* other : others) folder_.Write(other, "");
  RemoveLeftovers(folder_.Path());
  for (const char* other : others) EXPECT_TRUE(folder_.Holds(other)) << other;
}

TEST_F(LeftoversTest, EachSaveInAFolderRemovesThem) {
  SystemDisk disk;
  SettingsStore store(disk);
  for (const bool asFolder : {false, true}) {
    const std::string name = Leave(asFolder);
    store.Write(folder_.Path("a.product"), "A", "b", std::to_string(asFolder));
    EXPECT_FALSE(folder_.Holds(name));
  }
}

TEST_F(LeftoversTest, AFileBeingWrittenIsNone) {
  SystemDisk disk;
  ReplacementFile replacement(disk, folder_.Path("a.product"));
  replacement.File().Write("neu");
  RemoveLeftovers(folder_.Path());
  replacement.Commit(ReplacementFile::Durability::Cached);
  EXPECT_EQ(folder_.Read("a.product"), "neu");
}

TEST_F(LeftoversTest, ANameThatIsTakenAwayAtOnceIsReplacedByAnother) {
  int made = 0;
  const HeldTemporary held(folder_.Path("x"), [&](const std::string& path) {
    if (++made > 1) folder_.Write(FileNamePart(path), "");
  });
  EXPECT_EQ(made, 2);
  EXPECT_TRUE(FileExists(held.Path()));
}

}  // namespace tools
