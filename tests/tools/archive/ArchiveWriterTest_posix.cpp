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

// The system hides the sizes of some files; one of them is larger than a block.
TEST(UnzipTest, WhatCannotBeReadLeavesNothingBehind) {
  const TemporaryFolder folder;
  SystemDisk disk;
  ASSERT_EQ(::mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  ArchiveWriter writer(disk, folder.Path("a.zip"), {.blockMegabytes = 1});
  for (const std::string& path : {folder.Path("pipe"), std::string("/proc/kallsyms")}) {
    EXPECT_FALSE(writer.AddFile(path, "failed").Succeeded()) << path;
  }
  EXPECT_TRUE(writer.AddFile("/proc/version", "version").Succeeded());
  EXPECT_EQ(writer.Finish().files, 1U);
  const std::string command = "cd " + folder.Path() + " && unzip -p a.zip | cmp - /proc/version";
  EXPECT_EQ(std::system(command.c_str()), 0);
}

}  // namespace tools
