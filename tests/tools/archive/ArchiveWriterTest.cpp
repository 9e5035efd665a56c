#include <atomic>
#include <filesystem>

#include "tests/support/FaultyDisk.h"
#include "tests/support/SampleBytes.h"
#include "tests/support/Testing.h"
#include "tests/support/ZipReader.h"
#include "tools/archive/ArchiveWriter.h"
#include "tools/archive/ZipFormat.h"
#include "tools/files/Files.h"
#include "tools/files/FindFiles.h"
#include "tools/files/Path.h"

namespace tools {

using testing::HasSubstr;
using tests::ReadZip;
using tests::WordBytes;

static constexpr std::size_t kBlock = 1U << 20U;
static const ArchiveOptions kSmallBlocks{.blockMegabytes = 1};

class ArchiveWriterTest : public testing::Test {
 protected:
  // Archives files of "in" under their names, in this order.
  ArchiveTotals Archive(const std::vector<std::string>& names,
                        const ArchiveOptions& options = kSmallBlocks,
                        const ArchiveWriter::ProgressCallback& progress = {}) {
    ArchiveWriter writer(*disk_, archive_, options, progress);
    for (const std::string& name : names) {
      EXPECT_TRUE(writer.AddFile(folder_.Path("in/" + name), name).Succeeded()) << name;
    }
    return writer.Finish();
  }
  [[nodiscard]] std::string ArchiveBytes() const { return folder_.Read("out/a.zip"); }

  // The description of the error that `action` raises, after which an archive that was there is
  // untouched and alone in its folder.
  template <typename Action>
  std::string FailureOf(const Action& action) {
    folder_.Write("out/a.zip", "as before");
    std::string description = tests::ErrorOf(action);
    EXPECT_TRUE(description == "no error" || ArchiveBytes() == "as before") << description;
    EXPECT_EQ(FindFiles(folder_.Path("out"), "*", Subfolders::Search).size(), 1U);
    return description;
  }

  tests::TemporaryFolder folder_;
  const std::string archive_ = folder_.MakeFolder("out") + kPathSeparator + "a.zip";
  SystemDisk system_;
  Disk* disk_ = &system_;
};

TEST_F(ArchiveWriterTest, HoldsWhatWasAddedInThatOrderWhateverTheNumberOfThreads) {
  EXPECT_EQ(Archive({}).files, 0U);
  EXPECT_TRUE(ReadZip(ArchiveBytes()).empty());
  std::vector<std::pair<std::string, std::string>> files{
      {"z.txt", "zzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzz"},
      {"Übersicht 東京.txt", WordBytes(100'000)},
      {"empty", ""},
      {"random", tests::RandomBytes(5000)},
      {"block", WordBytes(kBlock)},
      {"block and a byte", WordBytes(kBlock + 1)},
      {"three blocks", tests::MixedBytes(3 * kBlock)},
      {"random blocks", tests::RandomBytes(2 * kBlock + 7)},
      {"late words", tests::RandomBytes(2 * kBlock) + WordBytes(kBlock + 9)},
      {"late random", WordBytes(kBlock) + tests::RandomBytes(2 * kBlock + 70'000)},
      // The gain of one block is less than what it takes to have stored ones in the stream.
      {"random but for 900", tests::RandomBytes(14 * kBlock) + std::string(900, '0') +
                                 tests::RandomBytes(2 * kBlock - 900)},
      {"a.txt", "a"}};
  for (std::size_t i = 0; i < 300; ++i) files.emplace_back(std::to_string(i), WordBytes(i * 77));
  std::vector<std::string> names;
  std::uint64_t bytes = 0;
  for (const auto& [name, content] : files) {
    folder_.Write("in/" + name, content);
    names.push_back(name);
    bytes += content.size();
  }
  const ArchiveTotals totals = Archive(names);
  EXPECT_EQ(totals.files, files.size());
  EXPECT_EQ(totals.bytesIn, bytes);
  EXPECT_EQ(totals.bytesOut, ArchiveBytes().size());

  const std::string archive = ArchiveBytes();
  for (const int threads : {1, 2, 7}) {
    Archive(names, {.blockMegabytes = 1, .threads = threads});
    EXPECT_TRUE(ArchiveBytes() == archive) << threads;
  }

  const std::vector<tests::ZipEntry> entries = ReadZip(archive);
  ASSERT_EQ(entries.size(), files.size());
  for (std::size_t i = 0; i < files.size(); ++i) {
    const auto& [name, content] = files[i];
    EXPECT_EQ(entries[i].name, name);
    EXPECT_TRUE(entries[i].content == content) << name;
    EXPECT_EQ(entries[i].utf8, name.starts_with("Ü")) << name;
    EXPECT_EQ(entries[i].stored, name.starts_with("random") || content.size() < 2) << name;
    EXPECT_EQ(entries[i].dosDateTime, DosDateTime(StampOf(folder_.Path("in/" + name)).modified));
  }
}

// Headers, blocks, the copy of what does not compress, the directory: every single call fails once.
TEST_F(ArchiveWriterTest, ADiskThatFailsLeavesTheOldArchive) {
  folder_.Write("in/small", WordBytes(1000));
  folder_.Write("in/large", tests::RandomBytes(3 * kBlock));
  using Step = tests::FaultyDisk::Step;
  const std::pair<Step, int> steps[] = {
      {Step::Create, 1}, {Step::Write, 9}, {Step::Close, 1}, {Step::Replace, 1}};
  for (const auto& [step, leastCalls] : steps) {
    int calls = 0;
    for (std::string failure; failure != "no error"; ++calls) {
      tests::FaultyDisk faulty;
      faulty.FailAt(step, calls + 1);
      disk_ = &faulty;
      failure = FailureOf([&] { Archive({"small", "large", "small"}); });
      if (failure == "no error") break;
      ASSERT_THAT(failure, HasSubstr(folder_.Path("out"))) << calls;
      ASSERT_THAT(failure, HasSubstr("Kein Speicherplatz mehr")) << calls;
    }
    EXPECT_GE(calls, leastCalls);
  }
}

TEST_F(ArchiveWriterTest, TheArchiveGoesOnWithoutWhatCannotBeRead) {
  folder_.MakeFolder("in/folder");
  folder_.Write("in/a", "a");
  ArchiveWriter writer(*disk_, archive_, kSmallBlocks);
  const std::pair<const char*, std::errc> rows[] = {
      {"missing", std::errc::no_such_file_or_directory},
      {"folder", std::errc::is_a_directory},
      {"a", {}}};
  for (const auto& [name, cause] : rows) {
    const CopyResult result = writer.AddFile(folder_.Path(std::string("in/") + name), name);
    EXPECT_TRUE(result.cause == cause) << name;
    EXPECT_EQ(result.Succeeded(), cause == std::errc()) << name;
  }
  EXPECT_EQ(writer.Finish().files, 1U);
  EXPECT_THAT(FailureOf([&] { Archive({std::string(70'000, 'n')}); }), HasSubstr("zu lang"));
}

TEST_F(ArchiveWriterTest, SourcesThatAreReadAheadMakeTheSameArchive) {
  constexpr std::size_t kLargestReadAhead = std::size_t{128} << 10U;
  std::vector<std::string> paths;
  for (std::size_t i = 0; i < 300; ++i) {
    const std::string name = "in/" + std::to_string(i);
    paths.push_back(folder_.Path(name));
    if (i % 7 != 3) folder_.Write(name, WordBytes(i < 260 ? i : kLargestReadAhead - 280 + i));
  }
  paths.push_back(paths[5]);
  paths.push_back(folder_.MakeFolder("in/folder"));
  paths.push_back(folder_.Write("in/large", WordBytes(2 * kBlock)));

  using Patience = std::optional<ReadAhead::Duration>;
  const auto archive = [&](const Patience& patience, std::size_t count) {
    std::atomic<std::size_t> asked = 0;  // by any thread
    ArchiveWriter writer(*disk_, archive_, kSmallBlocks);
    const auto next = [&] { return asked < paths.size() ? paths[asked++] : std::string_view(); };
    if (patience) writer.Expect(next, *patience);
    std::string outcome;
    for (std::size_t i = 0; i < count; ++i) {
      const CopyResult result = writer.AddFile(paths[i], std::to_string(i));
      if (!result.Succeeded()) outcome += std::to_string(i) + " " + result.errorText + "|";
      if (i == 17) {
        EXPECT_EQ(asked > 18, patience == ReadAhead::Duration::zero());
      }
    }
    if (count == paths.size()) writer.Finish();
    return outcome;
  };
  const std::string oneByOne = archive({}, paths.size());
  const std::string bytes = ArchiveBytes();
  EXPECT_THAT(oneByOne, HasSubstr("|10 "));
  EXPECT_THAT(oneByOne, HasSubstr("|301 "));
  for (const auto patience : {ReadAhead::Duration::max(), ReadAhead::Duration::zero()}) {
    EXPECT_EQ(archive(patience, paths.size()), oneByOne);
    EXPECT_TRUE(ArchiveBytes() == bytes);
  }
  archive(ReadAhead::Duration::zero(), 70);  // given up while threads read
}

// What a build meets when sources live on.
TEST_F(ArchiveWriterTest, ASourceIsPackedAsItWasAtOneMoment) {
  const std::string small = folder_.Write("in/small", "short");
  const std::string words = WordBytes(kBlock);
  std::string content;
  for (int i = 0; i < 40; ++i) content += words;
  const std::string large = folder_.Write("in/large", content);
  unsigned changes = 0;
  unsigned mostChanges = 0;
  // The first blocks are written while the last ones are not yet read.
  tests::FaultyDisk disk;
  disk.onStep = [&](const tests::FaultyDisk::Taken& taken) {
    if (taken.step != tests::FaultyDisk::Step::Write || changes >= mostChanges) return;
    std::filesystem::resize_file(ToPath(large), 39 * kBlock - ++changes);
  };
  for (mostChanges = 0; mostChanges <= 1; ++mostChanges) {
    ArchiveWriter writer(disk, archive_, {.blockMegabytes = 1, .threads = 1});
    EXPECT_TRUE(writer.AddFile(small, "small").Succeeded());
    EXPECT_TRUE(writer.AddFile(large, "large").Succeeded());
    folder_.Write("in/small", "longer now");
    writer.Finish();
    const std::vector<tests::ZipEntry> entries = ReadZip(ArchiveBytes());
    EXPECT_EQ(entries[0].content, mostChanges == 0 ? "short" : "longer now");
    EXPECT_TRUE(entries[1].content == folder_.Read("in/large")) << mostChanges;
  }
  EXPECT_EQ(changes, 1U);

  mostChanges = 1000;
  ArchiveWriter writer(disk, archive_, {.blockMegabytes = 1, .threads = 1});
  EXPECT_TRUE(writer.AddFile(large, "large").cause == kChangesMeanwhile);
  EXPECT_TRUE(writer.AddFile(small, "small").Succeeded());
  EXPECT_EQ(writer.Finish().bytesIn, 10U);
  EXPECT_TRUE(ReadZip(ArchiveBytes()).at(0).content == "longer now");
}

TEST_F(ArchiveWriterTest, TheProgressCallbackCanStopIt) {
  folder_.Write("in/large", WordBytes(20 * kBlock));
  int calls = 0;
  const auto stop = [&calls](const ArchiveTotals& totals) {
    ++calls;
    EXPECT_GT(totals.bytesOut, 0U);
    throw Error("stopped");
  };
  EXPECT_EQ(FailureOf([&] { Archive({"large", "large"}, kSmallBlocks, stop); }), "stopped");
  EXPECT_EQ(calls, 1);
}

}  // namespace tools
