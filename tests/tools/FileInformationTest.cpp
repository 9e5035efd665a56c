#include "tests/support/Testing.h"
#include "tools/Clock.h"
#include "tools/FileInformation.h"
#include "tools/Files.h"

namespace tools {

TEST(FileInformationTest, TellsTheDateOfAFileAndNothingOfOtherThings) {
  const tests::TemporaryFolder folder;
  const std::string path = folder.Write("Prüfung 漢.txt", "text");
  EXPECT_TRUE(InformationOf(path).exists);
  EXPECT_EQ(InformationOf(path).version, "");
  EXPECT_EQ(InformationOf(path).dateTime, LocalDateTimeText(StampOf(path).modifiedNanoseconds));
  for (const std::string& other : {folder.Path(), folder.Path("missing"), std::string()}) {
    EXPECT_FALSE(InformationOf(other).exists) << other;
    EXPECT_EQ(InformationOf(other).version + InformationOf(other).dateTime, "") << other;
  }
}

}  // namespace tools
