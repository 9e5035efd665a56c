#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "tools/Error.h"
#include "tools/Numbers.h"

namespace tools {
namespace {

TEST(NumbersTest, ReadsTheLeadingNumber) {
  EXPECT_EQ(LeadingNumber("12abc"), 12);
  EXPECT_EQ(LeadingNumber(" \t-3.25 x"), -3.25);
  EXPECT_EQ(LeadingNumber("+7"), 7);
  EXPECT_EQ(LeadingNumber(".5"), 0.5);
  EXPECT_EQ(LeadingNumber("5."), 5);
  EXPECT_EQ(LeadingNumber("1e3"), 1);
  EXPECT_EQ(LeadingNumber("1,5"), 1);
}

TEST(NumbersTest, TextWithoutALeadingNumberIsZero) {
  for (const char* text : {"", "  ", "x1", "-", "+-1", ".", "-.", "inf", "nan", "\xC3\xBC"}) {
    EXPECT_EQ(LeadingNumber(text), 0) << text;
  }
}

TEST(NumbersTest, SurvivesNumbersOutsideTheRangeOfADouble) {
  EXPECT_TRUE(std::isinf(LeadingNumber(std::string(5000, '9'))));
  EXPECT_EQ(LeadingNumber("0." + std::string(5000, '0') + "1"), 0);
}

TEST(NumbersTest, RoundsHalvesToTheEvenNeighbour) {
  EXPECT_EQ(ToInt16("0.5"), 0);
  EXPECT_EQ(ToInt16("1.5"), 2);
  EXPECT_EQ(ToInt16("2.5"), 2);
  EXPECT_EQ(ToInt32("-3.5"), -4);
}

TEST(NumbersTest, RefusesWhatDoesNotFit) {
  EXPECT_EQ(ToInt16("-32768.5"), -32768);
  EXPECT_EQ(ToInt16("32767.4"), 32767);
  EXPECT_THROW((void)ToInt16("32767.5"), Error);
  EXPECT_THROW((void)ToInt16("-32769"), Error);
  EXPECT_EQ(ToInt32("2147483647"), 2147483647);
  EXPECT_THROW((void)ToInt32("2147483648"), Error);
  EXPECT_THROW((void)ToInt32(std::string(5000, '9')), Error);
}

}  // namespace
}  // namespace tools
