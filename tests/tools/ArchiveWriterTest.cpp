#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/FaultyDisk.h"
#include "tests/support/SampleBytes.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ZipReader.h"
#include "tools/ArchiveWriter.h"
#include "tools/Error.h"
#include "tools/Files.h"
#include "tools/Path.h"
#include "tools/ZipFormat.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr std::size_t kBlock = 1U << 20U;
constexpr tools::ArchiveOptions kSmallBlocks{.blockMegabytes = 1};

class ArchiveWriterTest : public testing::Test {
 protected:
  // Archives files of "in" under their names, in this order.
  tools::ArchiveTotals Archive(const std::vector<std::string>& names,
                               tools::ArchiveOptions options = kSmallBlocks,
                               const tools::ArchiveWriter::ProgressCallback& progress = {}) {
    tools::ArchiveWriter writer(*disk_, ArchivePath(), options, progress);
    for (const std::string& name : names) writer.AddFile(folder_.Path("in/" + name), name);
    return writer.Finish();
  }
  [[nodiscard]] std::string ArchivePath() const { return folder_.Path("out/a.zip"); }
  [[nodiscard]] std::string ArchiveBytes() const { return folder_.Read("out/a.zip"); }

  // The description of the error that `action` raises, after which an archive that was there is
  // untouched and alone in its folder.
  template <typename Action>
  std::string FailureOf(const Action& action) {
    folder_.Write("out/a.zip", "as before");
    std::string description = "no error";
    try {
      action();
    } catch (const tools::Error& error) {
      description = error.what();
    }
    EXPECT_EQ(ArchiveBytes(), "as before");
    EXPECT_EQ(tools::FindFiles(folder_.Path("out"), "*", true).size(), 1U);
    return description;
  }

  tests::TemporaryFolder folder_;
  const std::string out_ = folder_.MakeFolder("out");
  tools::SystemDisk system_;
  tools::Disk* disk_ = &system_;
};

TEST_F(ArchiveWriterTest, HoldsWhatWasAddedInThatOrder) {
  const std::vector<std::pair<std::string, std::string>> files{
      {"z.txt", "zzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzz"},
      {"Übersicht 東京.txt", tests::WordBytes(100'000)},
      {"empty", ""},
      {"random", tests::RandomBytes(5000)},
      {"block", tests::WordBytes(kBlock)},
      {"block and a byte", tests::WordBytes(kBlock + 1)},
      {"three blocks", tests::MixedBytes(3 * kBlock)},
      {"random blocks", tests::RandomBytes(2 * kBlock + 7)},
      {"a.txt", "a"}};
  std::vector<std::string> names;
  std::uint64_t bytes = 0;
  for (const auto& [name, content] : files) {
    folder_.Write("in/" + name, content);
    names.push_back(name);
    bytes += content.size();
  }
  const tools::ArchiveTotals totals = Archive(names);
  EXPECT_EQ(totals.files, files.size());
  EXPECT_EQ(totals.bytesIn, bytes);
  EXPECT_EQ(totals.bytesOut, ArchiveBytes().size());

  const std::vector<tests::ZipEntry> entries = tests::ReadZip(ArchiveBytes());
  ASSERT_EQ(entries.size(), files.size());
  for (std::size_t i = 0; i < files.size(); ++i) {
    const auto& [name, content] = files[i];
    EXPECT_EQ(entries[i].name, name);
    EXPECT_TRUE(entries[i].content == content) << name;
    EXPECT_EQ(entries[i].utf8, name.starts_with("Ü")) << name;
    EXPECT_EQ(entries[i].stored, name.starts_with("random") || content.size() < 2) << name;
    EXPECT_EQ(entries[i].dosDateTime,
              tools::DosDateTime(tools::StampOf(folder_.Path("in/" + name)).modifiedNanoseconds));
  }
}

TEST_F(ArchiveWriterTest, AnArchiveOfNothingIsEmpty) {
  EXPECT_EQ(Archive({}).files, 0U);
  EXPECT_TRUE(tests::ReadZip(ArchiveBytes()).empty());
}

TEST_F(ArchiveWriterTest, BytesDependOnTheSourcesOnly) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < 300; ++i) {
    names.push_back(std::to_string(i) + ".txt");
    folder_.Write("in/" + names.back(), tests::WordBytes(i * 77));
  }
  names.insert(names.begin() + 100, "large");
  folder_.Write("in/large", tests::MixedBytes(5 * kBlock));
  Archive(names, {.blockMegabytes = 1, .threads = 1});
  const std::string first = ArchiveBytes();
  for (const int threads : {2, 7}) {
    Archive(names, {.blockMegabytes = 1, .threads = threads});
    EXPECT_TRUE(ArchiveBytes() == first) << threads;
  }
}

TEST_F(ArchiveWriterTest, PatternsAddFilesAtTheTopLevel) {
  for (const char* name : {"b.txt", "a.txt", "c.bin", "deeper/d.txt"}) {
    folder_.Write(std::string("in/") + name, name);
  }
  tools::ArchiveWriter writer(*disk_, ArchivePath(), {});
  writer.AddPattern(folder_.Path("in"), "*.TXT");
  EXPECT_EQ(writer.Finish().files, 2U);
  const std::vector<tests::ZipEntry> entries = tests::ReadZip(ArchiveBytes());
  EXPECT_EQ(entries[0].name, "a.txt");
  EXPECT_EQ(entries[1].name, "b.txt");
}

TEST_F(ArchiveWriterTest, ADiskThatFailsLeavesTheOldArchive) {
  folder_.Write("in/small", tests::WordBytes(1000));
  folder_.Write("in/large", tests::RandomBytes(3 * kBlock));
  using Step = tests::FaultyDisk::Step;
  const auto failAt = [&](Step step, int call) {
    tests::FaultyDisk faulty(system_);
    faulty.FailAt(step, call);
    disk_ = &faulty;
    return FailureOf([&] {
      Archive({"small", "large", "small"});
      folder_.Write("out/a.zip", "as before");  // a call that is never reached fails nothing
    });
  };
  const std::string cause = "Kein Speicherplatz mehr";
  for (const Step step : {Step::Create, Step::Close, Step::Replace}) {
    EXPECT_THAT(failAt(step, 1), AllOf(HasSubstr(out_), HasSubstr(cause)));
  }
  // Headers, blocks, the copy of what does not compress, the directory: every single write.
  int writes = 0;
  for (std::string failure; (failure = failAt(Step::Write, writes + 1)) != "no error"; ++writes) {
    ASSERT_THAT(failure, AllOf(HasSubstr(out_), HasSubstr(cause))) << writes;
  }
  EXPECT_GT(writes, 8);
}

TEST_F(ArchiveWriterTest, ASourceThatCannotBeReadIsNamed) {
  folder_.MakeFolder("in/folder");
  for (const char* name : {"missing", "folder"}) {
    EXPECT_THAT(FailureOf([&] { Archive({name}); }),
                HasSubstr(folder_.Path(std::string("in/") + name)));
  }
  const std::string tooLong(70'000, 'n');
  EXPECT_THAT(FailureOf([&] { Archive({tooLong}); }), HasSubstr("zu lang"));
}

// What a build meets when sources live on.
TEST_F(ArchiveWriterTest, ASmallSourceIsPackedAsItWasWhenItWasAdded) {
  const std::string grows = folder_.Write("in/grows", "short");
  const std::string goes = folder_.Write("in/goes", tests::WordBytes(kBlock));
  tools::ArchiveWriter writer(*disk_, ArchivePath(), kSmallBlocks);
  writer.AddFile(grows, "grows");
  writer.AddFile(goes, "goes");
  folder_.Write("in/grows", tests::WordBytes(2 * kBlock));
  tools::DeleteFile(goes);
  writer.Finish();
  const std::vector<tests::ZipEntry> entries = tests::ReadZip(ArchiveBytes());
  EXPECT_EQ(entries[0].content, "short");
  EXPECT_TRUE(entries[1].content == tests::WordBytes(kBlock));
}

TEST_F(ArchiveWriterTest, ALargeSourceThatChangesIsRefused) {
  const std::string path = folder_.Write("in/large", tests::WordBytes(40 * kBlock));
  for (const std::size_t size : {std::size_t{10}, 3 * kBlock, 41 * kBlock}) {
    EXPECT_THAT(FailureOf([&] {
                  tools::ArchiveWriter writer(*disk_, ArchivePath(),
                                              {.blockMegabytes = 1, .threads = 1});
                  writer.AddFile(path, "large");
                  std::filesystem::resize_file(tools::ToPath(path), size);
                  writer.Finish();
                }),
                HasSubstr("geändert: " + path));
    folder_.Write("in/large", tests::WordBytes(40 * kBlock));
  }
}

TEST_F(ArchiveWriterTest, TheProgressCallbackCanStopIt) {
  folder_.Write("in/large", tests::WordBytes(20 * kBlock));
  int calls = 0;
  const std::string failure = FailureOf([&] {
    Archive({"large", "large"}, kSmallBlocks, [&](const tools::ArchiveTotals& totals) {
      ++calls;
      EXPECT_GT(totals.bytesOut, 0U);
      throw tools::Error("stopped");
    });
  });
  EXPECT_EQ(failure, "stopped");
  EXPECT_EQ(calls, 1);
}

TEST_F(ArchiveWriterTest, AWriterThatIsDroppedLeavesTheOldArchive) {
  const std::string path = folder_.Write("in/large", tests::WordBytes(4 * kBlock));
  EXPECT_EQ(FailureOf([&] {
              tools::ArchiveWriter writer(*disk_, ArchivePath(), kSmallBlocks);
              writer.AddFile(path, "large");
            }),
            "no error");
}

}  // namespace
