// Archives as other programs' readers see them.
#include <archive.h>
#include <archive_entry.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <clocale>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/SampleBytes.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/ArchiveWriter.h"
#include "tools/Error.h"

namespace {

struct Member {
  std::string name;
  std::string content;
  bool operator==(const Member&) const = default;
};

std::vector<Member> ReadWithLibarchive(const std::string& path) {
  const std::unique_ptr<archive, int (*)(archive*)> reader(archive_read_new(), archive_read_free);
  archive_read_support_format_zip_seekable(reader.get());
  EXPECT_EQ(archive_read_open_filename(reader.get(), path.c_str(), 1U << 16U), ARCHIVE_OK);
  std::vector<Member> members;
  archive_entry* entry = nullptr;
  while (archive_read_next_header(reader.get(), &entry) == ARCHIVE_OK) {
    Member member{archive_entry_pathname_utf8(entry), {}};
    member.content.resize(static_cast<std::size_t>(archive_entry_size(entry)));
    EXPECT_EQ(archive_read_data(reader.get(), member.content.data(), member.content.size()),
              static_cast<la_ssize_t>(member.content.size()));
    char more = 0;
    EXPECT_EQ(archive_read_data(reader.get(), &more, 1), 0);  // checks the checksum
    members.push_back(std::move(member));
  }
  EXPECT_EQ(archive_errno(reader.get()), 0) << archive_error_string(reader.get());
  return members;
}

bool UnzipAccepts(const std::string& path) {
  return std::system(("unzip -tqq '" + path + "' >/dev/null 2>&1").c_str()) == 0;
}

class ArchiveReadersTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr); }
  void TearDown() override { std::setlocale(LC_ALL, "C"); }

  tests::TemporaryFolder folder_;
  tools::SystemDisk disk_;
  const std::string archive_ = folder_.Path("a.zip");
};

TEST_F(ArchiveReadersTest, LibarchiveAndUnzipReadEveryKindOfMember) {
  constexpr std::size_t kBlock = 3U << 20U;
  const std::vector<Member> members{{"empty", ""},
                                    {"äöüß 東京.txt", tests::WordBytes(5000)},
                                    {"random", tests::RandomBytes(100'000)},
                                    {"words", tests::WordBytes(2 * kBlock)},
                                    {"mixed", tests::MixedBytes(3 * kBlock + 1)},
                                    {"zeros", std::string(4 * kBlock, '\0')},
                                    {"random blocks", tests::RandomBytes(kBlock + 1)}};
  tools::ArchiveWriter writer(disk_, archive_, {});
  for (const Member& member : members) {
    writer.AddFile(folder_.Write("in/" + member.name, member.content), member.name);
  }
  writer.Finish();
  EXPECT_TRUE(ReadWithLibarchive(archive_) == members);
  EXPECT_TRUE(UnzipAccepts(archive_));
}

TEST_F(ArchiveReadersTest, SeventyThousandMembers) {
  const std::string source = folder_.Write("in/a", "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa");
  constexpr int kMembers = 70'000;
  tools::ArchiveWriter writer(disk_, archive_, {});
  for (int i = 0; i < kMembers; ++i) writer.AddFile(source, std::to_string(i));
  EXPECT_EQ(writer.Finish().files, std::uint64_t{kMembers});
  const std::vector<Member> members = ReadWithLibarchive(archive_);
  ASSERT_EQ(members.size(), std::size_t{kMembers});
  EXPECT_EQ(members.back().name, std::to_string(kMembers - 1));
  EXPECT_TRUE(UnzipAccepts(archive_));
}

TEST_F(ArchiveReadersTest, APipeIsNoSource) {
  const std::string pipe = folder_.Path("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  tools::ArchiveWriter writer(disk_, archive_, {});
  EXPECT_THROW(writer.AddFile(pipe, "pipe"), tools::Error);
}

}  // namespace
