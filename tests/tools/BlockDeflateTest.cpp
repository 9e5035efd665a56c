#include <gtest/gtest.h>

#include "tests/support/SampleBytes.h"
#include "tests/support/ZipReader.h"
#include "tools/BlockDeflate.h"

namespace {

constexpr std::size_t kBlock = 1U << 20U;

// Ends of all shapes: within a byte and on one, in stored, fixed and dynamic blocks.
TEST(BlockDeflateTest, PartsOfAnyEndJoinToOneStream) {
  tools::BlockDeflater deflater(6, kBlock);
  std::string source;
  std::string stream;
  const auto add = [&](const std::string& part) {
    source += part;
    stream += deflater.DeflatePart(part);
  };
  for (std::size_t size = 0; size < 200; ++size) add(tests::WordBytes(size));
  for (unsigned seed = 1; seed <= 40; ++seed) add(tests::WordBytes(60'000 + seed, seed));
  add(tests::RandomBytes(kBlock));
  add(std::string(kBlock, '\0'));
  add(tests::MixedBytes(kBlock));
  const std::string last = tests::WordBytes(1000);
  stream += deflater.Deflate(last);
  EXPECT_EQ(tests::Inflate(stream), source + last);
}

TEST(BlockDeflateTest, ChecksumsJoin) {
  const std::string first = tests::RandomBytes(70'001);
  const std::string second = tests::WordBytes(3);
  EXPECT_EQ(tools::JoinCrc32(tools::Crc32(first), tools::Crc32(second), second.size()),
            tools::Crc32(first + second));
  EXPECT_EQ(tools::JoinCrc32(0, tools::Crc32(first), first.size()), tools::Crc32(first));
  EXPECT_EQ(tools::Crc32("123456789"), 0xCBF43926U);
}

}  // namespace
