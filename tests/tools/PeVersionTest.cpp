#include <gtest/gtest.h>

#include <random>

#include "tools/PeVersion.h"

namespace tools {
namespace {

void Put(std::string& bytes, std::size_t offset, std::uint64_t value, std::size_t size) {
  if (bytes.size() < offset + size) bytes.resize(offset + size);
  for (std::size_t i = 0; i < size; ++i) bytes[offset + i] = static_cast<char>(value >> (8 * i));
}

/// A program that is nothing but headers and one section: an icon and version 1.20.300.65535.
std::string MakeProgram(bool pe32Plus) {
  std::string program = "MZ";
  Put(program, 60, 0x80, 4);
  Put(program, 0x80, 0x4550, 4);
  const std::size_t extra = pe32Plus ? 16 : 0;
  Put(program, 0x86, 1, 2);             // sections
  Put(program, 0x94, 0xE0 + extra, 2);  // size of the optional header
  Put(program, 0x98, pe32Plus ? 0x20B : 0x10B, 2);
  Put(program, 0x98 + 92 + extra, 16, 4);       // data directories
  Put(program, 0x98 + 112 + extra, 0x3000, 4);  // address of the resources
  const std::size_t section = 0x98 + 0xE0 + extra;
  Put(program, section + 12, 0x3000, 4);
  Put(program, section + 16, 0x200, 4);
  Put(program, section + 20, 0x400, 4);

  const std::size_t base = 0x400;
  Put(program, base + 14, 2, 2);  // types: icon, version
  Put(program, base + 16, 3, 4);
  Put(program, base + 20, 0x80000000, 4);
  Put(program, base + 24, 16, 4);
  Put(program, base + 28, 0x80000020, 4);
  Put(program, base + 0x20 + 14, 1, 2);  // names
  Put(program, base + 0x20 + 20, 0x80000040, 4);
  Put(program, base + 0x40 + 14, 1, 2);  // languages
  Put(program, base + 0x40 + 20, 0x60, 4);
  Put(program, base + 0x60, 0x3080, 4);  // data: address and size
  Put(program, base + 0x64, 92, 4);
  const std::size_t info = base + 0x80;
  Put(program, info, 92, 2);
  Put(program, info + 2, 52, 2);
  Put(program, info + 40, 0xFEEF04BD, 4);
  Put(program, info + 48, (1 << 16) | 20, 4);
  Put(program, info + 52, (300 << 16) | 65535, 4);
  Put(program, base + 0x1FF, 0, 1);
  return program;
}

std::string VersionOf(const std::string& program) {
  return PeVersionText([&program](std::uint64_t offset, std::size_t size) {
    EXPECT_LT(size, 3U << 20);
    return offset < program.size() ? program.substr(offset, size) : std::string();
  });
}

TEST(PeVersionTest, ReadsTheFixedFileVersion) {
  EXPECT_EQ(VersionOf(MakeProgram(false)), "1.20.300.65535");
  EXPECT_EQ(VersionOf(MakeProgram(true)), "1.20.300.65535");
}

TEST(PeVersionTest, OtherFilesHaveNoVersion) {
  EXPECT_EQ(VersionOf(""), "");
  EXPECT_EQ(VersionOf("MZ"), "");
  EXPECT_EQ(VersionOf("#!/bin/sh\n" + std::string(500, ' ')), "");
  std::string withoutVersion = MakeProgram(true);
  withoutVersion[0x400 + 24] = 14;
  EXPECT_EQ(VersionOf(withoutVersion), "");
}

TEST(PeVersionTest, SurvivesFilesCutOffAndDamaged) {
  const std::string program = MakeProgram(true);
  for (std::size_t size = 0; size < 0x400 + 0x80 + 92; ++size) {
    EXPECT_EQ(VersionOf(program.substr(0, size)), "") << size;
  }
  std::mt19937 random(1);
  for (int i = 0; i < 20000; ++i) {
    std::string damaged = program;
    for (int change = 0; change < 4; ++change) {
      Put(damaged, random() % (damaged.size() - 4), random() | (random() % 2 ? 0xFFFF0000 : 0),
          1 + random() % 4);
    }
    const std::string version = VersionOf(damaged);
    EXPECT_EQ(version.find_first_not_of("0123456789."), std::string::npos);
  }
}

}  // namespace
}  // namespace tools
