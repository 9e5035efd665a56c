#include <gtest/gtest.h>

#include <limits>

#include "tools/ZipFormat.h"

namespace {

constexpr std::uint64_t k4Gib = 0xFFFFFFFF;

TEST(ZipFormatTest, TimesAreUtcInStepsOfTwoSeconds) {
  constexpr std::int64_t kSecond = 1'000'000'000;
  const auto dos = [](unsigned y, unsigned mo, unsigned d, unsigned h, unsigned mi, unsigned s) {
    return ((y - 1980) << 25U) | (mo << 21U) | (d << 16U) | (h << 11U) | (mi << 5U) | (s / 2);
  };
  EXPECT_EQ(tools::DosDateTime(1'709'209'845 * kSecond), dos(2024, 2, 29, 12, 30, 45));
  EXPECT_EQ(tools::DosDateTime(1'709'209'845 * kSecond + 999'999'999),
            dos(2024, 2, 29, 12, 30, 44));
  for (const std::int64_t early :
       {std::int64_t{0}, std::int64_t{-1}, std::numeric_limits<std::int64_t>::min()}) {
    EXPECT_EQ(tools::DosDateTime(early), dos(1980, 1, 1, 0, 0, 0)) << early;
  }
  EXPECT_EQ(tools::DosDateTime(std::numeric_limits<std::int64_t>::max()),
            dos(2107, 12, 31, 23, 59, 58));
}

TEST(ZipFormatTest, Zip64FormStandsOnlyWhereValuesAskForIt) {
  tools::ZipMember member{
      .name = "a", .sourceBytes = k4Gib - 1, .storedBytes = k4Gib - 1, .headerOffset = k4Gib - 1};
  const auto centralBytes = [&] {
    std::string record;
    tools::AppendCentralRecord(record, member);
    return record.size();
  };
  EXPECT_EQ(tools::LocalHeader(member).size(), 30U + 1);
  EXPECT_EQ(centralBytes(), 46U + 1);
  member.headerOffset = k4Gib;
  EXPECT_EQ(tools::LocalHeader(member).size(), 30U + 1);
  EXPECT_EQ(centralBytes(), 46U + 1 + 4 + 8);
  member.sourceBytes = k4Gib;
  EXPECT_EQ(tools::LocalHeader(member).size(), 30U + 1 + 4 + 16);
  EXPECT_EQ(centralBytes(), 46U + 1 + 4 + 24);

  EXPECT_EQ(tools::DirectoryEnd(65534, 1, k4Gib - 1).size(), 22U);
  EXPECT_EQ(tools::DirectoryEnd(65535, 1, 1).size(), 22U + 20 + 56);
  EXPECT_EQ(tools::DirectoryEnd(1, 1, k4Gib).size(), 22U + 20 + 56);
}

}  // namespace
