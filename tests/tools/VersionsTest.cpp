#include "tests/support/Testing.h"
#include "tools/Versions.h"

namespace tools {

TEST(VersionsTest, SplitsLenientlyAndComparesNumbersNotText) {
  const std::pair<const char*, const char*> rows[] = {
      {"1.2.3", "1.2.3"}, {" 2 . 10beta.x", "2.10.0"}, {"7", "7.0.0"},
      {"", "0.0.0"},      {"1.2.3.4", "1.2.3"},        {"99999999999.0.1", "2147483647.0.1"}};
  for (const auto& [text, version] : rows) {
    EXPECT_EQ(FormatVersion(SplitVersion(text)), version);
  }
  EXPECT_EQ(CompareVersions("1.9.0", "1.10.0"), 1);
  EXPECT_EQ(CompareVersions("2.0.0", "1.99.99"), -1);
  EXPECT_EQ(CompareVersions("1.0", "1.0.0"), 0);
}

}  // namespace tools
