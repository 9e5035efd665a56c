#include <gtest/gtest.h>

#include "tools/Versions.h"

namespace tools {
namespace {

TEST(VersionsTest, SplitsLeniently) {
  EXPECT_EQ(SplitVersion("1.2.3"), (Version{1, 2, 3}));
  EXPECT_EQ(SplitVersion(" 2 . 10beta.x"), (Version{2, 10, 0}));
  EXPECT_EQ(SplitVersion("7"), (Version{7, 0, 0}));
  EXPECT_EQ(SplitVersion(""), (Version{0, 0, 0}));
  EXPECT_EQ(SplitVersion("1.2.3.4"), (Version{1, 2, 3}));
  EXPECT_EQ(SplitVersion("99999999999.0.1"), (Version{2147483647, 0, 1}));
}

TEST(VersionsTest, ComparesNumbersNotText) {
  EXPECT_EQ(CompareVersions("1.9.0", "1.10.0"), 1);
  EXPECT_EQ(CompareVersions("2.0.0", "1.99.99"), -1);
  EXPECT_EQ(CompareVersions("1.0", "1.0.0"), 0);
}

TEST(VersionsTest, FormatsWhatSplittingReads) {
  EXPECT_EQ(FormatVersion({1, 20, 3}), "1.20.3");
  EXPECT_GT(ToolVersion(), (Version{0, 0, 0}));
}

}  // namespace
}  // namespace tools
