#include "tests/support/SampleBytes.h"
#include "tests/support/Testing.h"
#include "tests/support/ZipReader.h"
#include "tools/archive/BlockDeflate.h"
#include "tools/archive/LastBlock.h"

namespace tools {

// Ends of all shapes: within a byte and on one, in stored, fixed and dynamic blocks.
TEST(BlockDeflateTest, PartsOfAnyEndJoinToOneStream) {
  constexpr std::size_t kBlock = 1U << 20U;
  std::vector<std::string> parts{tests::RandomBytes(kBlock), std::string(kBlock, '\0'),
                                 tests::MixedBytes(kBlock)};
  for (std::size_t size = 0; size < 200; ++size) parts.push_back(tests::WordBytes(size));
  for (unsigned seed = 1; seed <= 40; ++seed) parts.push_back(tests::WordBytes(60'000, seed));
  BlockDeflater deflater(6, kBlock);
  std::string source;
  std::string stream;
  for (const std::string& part : parts) {
    const bool isStored = part.size() % 3 == 0;
    source += part;
    stream += isStored ? StoredBlocks(part, BlockPlace::Inner) : deflater.DeflatePart(part);
  }
  EXPECT_TRUE(tests::Inflate(stream + std::string(deflater.Deflate("end")), source.size() + 3) ==
              source + "end");
  EXPECT_TRUE(tests::Inflate(stream + StoredBlocks("", BlockPlace::Last), source.size()) == source);
}

TEST(BlockDeflateTest, OnlyAPartThatAnythingCanFollowIsOne) {
  BlockDeflater deflater(6, 1U << 20U);
  const std::string source = tests::WordBytes(50'000);
  const auto isPart = [&](std::string bytes) {
    bytes.resize(bytes.size() + BlockDeflater::kFollowerBytes);
    return deflater.IsPartOf(source, bytes);
  };
  const std::string part(deflater.DeflatePart(source));
  const std::string whole(deflater.Deflate(source));
  EXPECT_TRUE(isPart(part));
  EXPECT_TRUE(isPart(StoredBlocks(source, BlockPlace::Inner)));
  EXPECT_TRUE(deflater.IsStreamOf(source, whole));
  std::string other = part;
  other[other.size() / 2] ^= 1;
  for (const std::string& bytes :
       {whole, part + part, part.substr(0, part.size() - 5), part + '\0',
        StoredBlocks(source, BlockPlace::Last), StoredBlocks(source.substr(1), BlockPlace::Inner),
        other, std::string()}) {
    EXPECT_FALSE(isPart(bytes)) << bytes.size();
  }
  EXPECT_FALSE(deflater.IsStreamOf(source, part));
  EXPECT_FALSE(deflater.IsStreamOf(source, whole + '\0'));
  EXPECT_FALSE(deflater.IsStreamOf(source.substr(1), whole));
}

TEST(BlockDeflateTest, TheLastBlockIsOnlyFoundWhereItIsLikely) {
  BlockDeflater deflater(6, 1U << 20U);
  LastBlockFinder finder;
  for (unsigned seed = 1; seed <= 20; ++seed) {
    const std::string source = tests::WordBytes(20'000 * seed, seed);
    const std::string stream(deflater.Deflate(source));
    const auto place = finder.Find(stream, source.size());
    ASSERT_TRUE(place) << seed;
    EXPECT_EQ((static_cast<unsigned char>(stream[place->beginBit / 8]) >> place->beginBit % 8) & 1,
              1);
    EXPECT_EQ((place->endBit + 7) / 8, stream.size());
    EXPECT_FALSE(finder.Find(stream.substr(0, stream.size() - 1), source.size()));
    EXPECT_FALSE(finder.Find(stream, 4000));
  }
  for (const std::string& source :
       {tests::RandomBytes(50'000), std::string(), tests::WordBytes(300)}) {
    EXPECT_FALSE(finder.Find(deflater.Deflate(source), source.size()));
  }
}

}  // namespace tools
