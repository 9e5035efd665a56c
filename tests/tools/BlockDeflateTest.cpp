#include "tests/support/SampleBytes.h"
#include "tests/support/Testing.h"
#include "tests/support/ZipReader.h"
#include "tools/BlockDeflate.h"

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
    source += part;
    stream += deflater.DeflatePart(part);
  }
  stream += deflater.Deflate("the end");
  EXPECT_TRUE(tests::Inflate(stream, source.size() + 7) == source + "the end");
}

}  // namespace tools
