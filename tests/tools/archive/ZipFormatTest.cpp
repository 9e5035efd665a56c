#include <tuple>

#include "tests/support/Testing.h"
#include "tools/archive/ZipFormat.h"

namespace tools {

using namespace std::chrono_literals;

TEST(ZipFormatTest, TimesAreUtcInStepsOfTwoSeconds) {
  const auto dos = [](unsigned y, unsigned mo, unsigned d, unsigned h, unsigned mi, unsigned s) {
    return ((y - 1980) << 25U) | (mo << 21U) | (d << 16U) | (h << 11U) | (mi << 5U) | (s / 2);
  };
  const std::pair<FileTime, std::uint32_t> rows[] = {
      {FileTime(1'709'209'845'000'000'000ns), dos(2024, 2, 29, 12, 30, 45)},
      {FileTime(1'709'209'845'999'999'999ns), dos(2024, 2, 29, 12, 30, 44)},
      {FileTime(), dos(1980, 1, 1, 0, 0, 0)},
      {FileTime::min(), dos(1980, 1, 1, 0, 0, 0)},
      {FileTime::max(), dos(2107, 12, 31, 23, 59, 58)}};
  for (const auto& [time, expected] : rows) EXPECT_EQ(DosDateTime(time), expected);
}

TEST(ZipFormatTest, Zip64FormStandsOnlyWhereValuesAskForIt) {
  constexpr std::uint64_t k4Gib = 0xFFFFFFFF;
  const std::tuple<std::uint64_t, std::uint64_t, std::size_t, std::size_t> rows[] = {
      {k4Gib - 1, k4Gib - 1, 0, 0}, {k4Gib - 1, k4Gib, 0, 12}, {k4Gib, k4Gib, 20, 28}};
  for (const auto& [bytes, offset, localExtra, centralExtra] : rows) {
    const ZipMember member{
        .name = "a", .sourceBytes = bytes, .storedBytes = 1, .headerOffset = offset};
    std::string central;
    AppendCentralRecord(central, member);
    EXPECT_EQ(LocalHeader(member).size(), 30 + 1 + localExtra);
    EXPECT_EQ(central.size(), 46 + 1 + centralExtra);
  }
  EXPECT_EQ(DirectoryEnd(65534, 1, k4Gib - 1).size(), 22U);
  EXPECT_EQ(DirectoryEnd(65535, 1, 1).size(), 22U + 20 + 56);
  EXPECT_EQ(DirectoryEnd(1, 1, k4Gib).size(), 22U + 20 + 56);
}

}  // namespace tools
