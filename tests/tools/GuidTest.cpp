#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "tools/Guid.h"

namespace tools {
namespace {

TEST(GuidTest, IsARandomGuidInBraces) {
  const std::regex form(
      "\\{[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}\\}");
  std::set<std::string> guids;
  for (int i = 0; i < 100; ++i) {
    const std::string guid = NewGuidText();
    EXPECT_TRUE(std::regex_match(guid, form)) << guid;
    EXPECT_TRUE(guids.insert(guid).second) << guid;
  }
}

}  // namespace
}  // namespace tools
