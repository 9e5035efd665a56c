// Archives as another program reads them.
#include <sys/stat.h>

#include <cstdlib>

#include "tests/support/SampleBytes.h"
#include "tests/support/Testing.h"
#include "tools/archive/ArchiveWriter.h"

namespace tools {

TEST(UnzipTest, AcceptsEveryKindOfMember) {
  const TemporaryFolder folder;
  SystemDisk disk;
  ArchiveWriter writer(disk, folder.Path("a.zip"), {});
  const std::pair<const char*, std::string> members[] = {
      {"empty", ""},
      {"äöüß 東京.txt", tests::MixedBytes(10'000'000)},
      {"zeros", std::string(10'000'000, '\0')},
      {"random blocks", tests::RandomBytes(4'000'000)}};
  for (const auto& [name, content] : members) {
    EXPECT_TRUE(writer.AddFile(folder.Write(name, content), name).Succeeded());
  }
  const std::string source = folder.Write("a", "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa");
  for (int i = 1; i <= 70'000; ++i) (void)writer.AddFile(source, std::to_string(i));
  EXPECT_EQ(writer.Finish().files, 70'004U);
  const std::string command = "cd " + folder.Path() +
                              " && unzip -tqq a.zip >log && unzip -Z1 a.zip >names &&" +
                              "seq 70000 >numbers && tail -n 70000 names | cmp - numbers";
  EXPECT_EQ(std::system(command.c_str()), 0);
}

TEST(UnzipTest, APipeIsNoSource) {
  const TemporaryFolder folder;
  SystemDisk disk;
  ASSERT_EQ(::mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  ArchiveWriter writer(disk, folder.Path("a.zip"), {});
  EXPECT_FALSE(writer.AddFile(folder.Path("pipe"), "pipe").Succeeded());
}

}  // namespace tools
