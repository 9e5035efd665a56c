// Archives made on top of earlier ones.
#include <map>

#include "tests/support/SampleBytes.h"
#include "tests/support/Testing.h"
#include "tools/archive/ArchiveWriter.h"
#include "tools/files/Disk.h"

namespace tools {

using tests::RandomBytes;
using tests::WordBytes;

class EarlierArchiveTest : public testing::Test {
 protected:
  static constexpr std::size_t kBlock = 1U << 20U;
  using Files = std::map<std::string, std::string>;

  EarlierArchiveTest() {
    for (unsigned i = 0; i < 150; ++i) files_["s" + std::to_string(i)] = WordBytes(i * 91, i);
    files_["empty"] = "";
    files_["random"] = RandomBytes(90'000);
    const std::string words = WordBytes(kBlock);
    files_["large"] = words + words + words + "!";
    files_["large random"] = RandomBytes(kBlock + 70'000);
    files_["mixed"] = files_["large random"].substr(9, kBlock) + words + RandomBytes(999, 8);
  }

  /// Archives the files and gives the archive's bytes.
  std::string Archive(const std::string& earlier, int threads = 1, int effort = 4) {
    ArchiveWriter writer(
        disk_, archive_,
        {.blockMegabytes = 1, .effort = effort, .threads = threads, .earlier = earlier});
    for (const auto& [name, content] : files_) {
      // The writer waits a moment for each file that was written just now.
      const std::string path = folder_.Path("in/" + name);
      if (!FileExists(path) || ReadWholeFile(path) != content) folder_.Write("in/" + name, content);
      (void)writer.AddFile(path, name, FileTime());
    }
    totals_ = writer.Finish();
    return folder_.Read("a.zip");
  }

  TemporaryFolder folder_;
  const std::string archive_ = folder_.Path("a.zip");
  SystemDisk disk_;
  Files files_;
  ArchiveTotals totals_;
};

TEST_F(EarlierArchiveTest, WhatHasNotChangedIsTakenOverWithTheBytesOfAFreshArchive) {
  const std::string earlier = folder_.Write("earlier.zip", Archive({}));
  EXPECT_EQ(totals_.filesTakenOver + totals_.bytesTakenOver, 0U);
  EXPECT_TRUE(Archive(earlier) == folder_.Read("earlier.zip"));
  EXPECT_EQ(totals_.filesTakenOver, files_.size());
  EXPECT_EQ(totals_.bytesTakenOver, totals_.bytesIn);

  files_.erase("s5");
  files_["a renamed one"] = WordBytes(9 * 91, 9);
  files_["s7"] += "!";
  files_["large"][kBlock + 5] ^= 1;  // one block of four
  files_["mixed"] += "!";            // the last block
  const std::string fresh = Archive({});
  for (const int threads : {1, 2, 3, 8}) {
    EXPECT_TRUE(Archive(earlier, threads) == fresh) << threads;
    EXPECT_EQ(totals_.filesTakenOver, files_.size() - 3);
    EXPECT_EQ(totals_.bytesTakenOver,
              totals_.bytesIn - files_["s7"].size() - kBlock - files_["mixed"].size() % kBlock);
  }
}

TEST_F(EarlierArchiveTest, OneThatCannotBeUsedChangesNothing) {
  const std::string whole = Archive({});
  const std::pair<std::string, std::string> rows[] = {
      {"missing", ""},
      {"empty", folder_.Write("empty.zip", "")},
      {"text", folder_.Write("text.zip", WordBytes(100'000))},
      {"cut off", folder_.Write("cut.zip", whole.substr(0, whole.size() - 1))},
      {"begins late", folder_.Write("late.zip", whole.substr(1))},
      {"other level", folder_.Write("level.zip", Archive({}, 1, 2))},
      {"folder", folder_.MakeFolder("folder.zip")}};
  for (const auto& [name, path] : rows) {
    EXPECT_TRUE(Archive(path.empty() ? folder_.Path("none") : path) == whole) << name;
    EXPECT_EQ(totals_.filesTakenOver, 0U) << name;
  }
}

// The next build finds itself in the earlier archive's place: it is read while it is replaced.
TEST_F(EarlierArchiveTest, ItMayBeTheArchiveThatIsReplaced) {
  const std::string first = Archive({});
  EXPECT_TRUE(Archive(archive_) == first);
  EXPECT_EQ(totals_.filesTakenOver, files_.size());
}

}  // namespace tools
