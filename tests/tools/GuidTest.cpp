#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string_view>

#include "tools/Guid.h"

namespace tools {
namespace {

TEST(GuidTest, IsARandomGuidInBraces) {
  std::set<std::string> guids;
  GuidSource source;
  for (int i = 0; i < 100; ++i) {
    const std::string guid = i % 2 == 0 ? NewGuidText() : source.NewText();
    std::string shape = guid;
    std::replace_if(
        shape.begin(), shape.end(),
        [](char c) { return std::string_view("0123456789ABCDEF").find(c) != std::string::npos; },
        'x');
    EXPECT_EQ(shape, "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}");
    EXPECT_EQ(guid.substr(15, 1), "4");
    EXPECT_NE(std::string_view("89AB").find(guid[20]), std::string_view::npos) << guid;
    EXPECT_TRUE(guids.insert(guid).second) << guid;
  }
}

}  // namespace
}  // namespace tools
