#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "tools/Clock.h"
#include "tools/FileInformation.h"
#include "tools/Files.h"

namespace tools {
namespace {

TEST(FileInformationTest, TellsADateButNoVersionOfAPlainFile) {
  const tests::TemporaryFolder folder;
  const std::string path = folder.Write("Prüfung 漢.txt", "text");
  const FileInformation information = InformationOf(path);
  EXPECT_TRUE(information.exists);
  EXPECT_EQ(information.version, "");
  EXPECT_EQ(information.dateTime, LocalDateTimeText(StampOf(path).modifiedNanoseconds));
}

TEST(FileInformationTest, KnowsNothingOfWhatIsNoFile) {
  const tests::TemporaryFolder folder;
  for (const std::string& path : {folder.Path(), folder.Path("missing"), std::string()}) {
    const FileInformation information = InformationOf(path);
    EXPECT_FALSE(information.exists) << path;
    EXPECT_EQ(information.version + information.dateTime, "") << path;
  }
}

}  // namespace
}  // namespace tools
