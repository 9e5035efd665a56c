#include <cmath>

#include "tests/support/Testing.h"
#include "tools/Numbers.h"

namespace tools {

TEST(NumbersTest, ReadsTheLeadingNumber) {
  const std::pair<const char*, double> rows[] = {
      {"12abc", 12}, {" \t-3.25 x", -3.25}, {"+7", 7}, {".5", 0.5}, {"5.", 5}, {"1e3", 1},
      {"1,5", 1}};
  for (const auto& [text, number] : rows) EXPECT_EQ(LeadingNumber(text), number) << text;
  for (const char* text : {"", "  ", "x1", "-", "+-1", ".", "-.", "inf", "nan", "ü"}) {
    EXPECT_EQ(LeadingNumber(text), 0) << text;
  }
  EXPECT_TRUE(std::isinf(LeadingNumber(std::string(5000, '9'))));
  EXPECT_EQ(LeadingNumber("0." + std::string(5000, '0') + "1"), 0);
}

TEST(NumbersTest, RoundsHalvesToTheEvenNeighbour) {
  const std::pair<const char*, int> rows[] = {
      {"0.5", 0}, {"1.5", 2}, {"-3.5", -4}, {"-32768.5", -32768}, {"32767.4", 32767}};
  for (const auto& [text, number] : rows) EXPECT_EQ(ToInt16(text), number) << text;
  EXPECT_THROW((void)ToInt16("32767.5"), Error);
  EXPECT_THROW((void)ToInt32(std::string(5000, '9')), Error);
}

}  // namespace tools
