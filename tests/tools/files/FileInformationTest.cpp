#include <chrono>
#include <filesystem>

#include "tests/support/Testing.h"
#include "tools/files/FileInformation.h"
#include "tools/files/Path.h"

namespace tools {

TEST(FileInformationTest, TellsTheDateOfAFileAndNothingOfOtherThings) {
  const tests::TemporaryFolder folder;
  const std::string path = folder.Write("Prüfung 漢.txt", "text");
  EXPECT_TRUE(InformationOf(path).exists);
  EXPECT_EQ(InformationOf(path).version, "");
  const std::chrono::sys_seconds noon =
      std::chrono::sys_days(std::chrono::year(2019) / 5 / 17) + std::chrono::hours(12);
  std::filesystem::last_write_time(ToPath(path), std::chrono::file_clock::from_sys(noon));
  EXPECT_THAT(InformationOf(path).dateTime, testing::HasSubstr("2019"));
  for (const std::string& other : {folder.Path(), folder.Path("missing"), std::string()}) {
    EXPECT_FALSE(InformationOf(other).exists) << other;
    EXPECT_EQ(InformationOf(other).version + InformationOf(other).dateTime, "") << other;
  }
}

}  // namespace tools
