// Archives as another program reads them.
#include <sys/stat.h>

#include <cstdlib>

#include "tests/support/SampleBytes.h"
#include "tests/support/Testing.h"
#include "tools/ArchiveWriter.h"

namespace tools {

class UnzipTest : public testing::Test {
 protected:
  /// Runs a command of the shell in the folder; true when it says that all is well.
  [[nodiscard]] bool Run(const std::string& command) const {
    return std::system(("cd " + folder_.Path() + " && " + command).c_str()) == 0;
  }

  tests::TemporaryFolder folder_;
  SystemDisk disk_;
  ArchiveWriter writer_{disk_, folder_.Path("a.zip"), {}};
};

TEST_F(UnzipTest, ExtractsEveryKindOfMember) {
  constexpr std::size_t kBlock = 3U << 20U;
  const std::pair<const char*, std::string> members[] = {
      {"empty", ""},
      {"äöüß 東京.txt", tests::WordBytes(5000)},
      {"random", tests::RandomBytes(100'000)},
      {"mixed", tests::MixedBytes(3 * kBlock + 1)},
      {"zeros", std::string(4 * kBlock, '\0')},
      {"random blocks", tests::RandomBytes(kBlock + 1)}};
  std::string all;
  for (const auto& [name, content] : members) {
    writer_.AddFile(folder_.Write(std::string("in/") + name, content), name);
    all += content;
  }
  writer_.Finish();
  folder_.Write("all", all);
  EXPECT_TRUE(Run("unzip -tqq a.zip >log && unzip -p a.zip | cmp - all"));
}

TEST_F(UnzipTest, FindsSeventyThousandMembers) {
  const std::string source = folder_.Write("a", "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa");
  for (int i = 1; i <= 70'000; ++i) writer_.AddFile(source, std::to_string(i));
  EXPECT_EQ(writer_.Finish().files, 70'000U);
  EXPECT_TRUE(Run("unzip -tqq a.zip >log && unzip -Z1 a.zip >names && seq 70000 | cmp - names"));
}

TEST_F(UnzipTest, APipeIsNoSource) {
  ASSERT_EQ(::mkfifo(folder_.Path("pipe").c_str(), 0600), 0);
  EXPECT_THROW(writer_.AddFile(folder_.Path("pipe"), "pipe"), Error);
}

}  // namespace tools
