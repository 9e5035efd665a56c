#include <regex>
#include <set>

#include "tests/support/Testing.h"
#include "tools/Guid.h"

namespace tools {

TEST(GuidTest, IsARandomGuidInBraces) {
  const std::regex shape(
      "\\{[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}\\}");
  std::set<std::string> guids;
  GuidSource source;
  for (int i = 0; i < 100; ++i) {
    const std::string guid = i % 2 == 0 ? NewGuidText() : source.NewText();
    EXPECT_TRUE(std::regex_match(guid, shape)) << guid;
    EXPECT_TRUE(guids.insert(guid).second) << guid;
  }
}

}  // namespace tools
