#include "tests/support/Testing.h"
#include "tools/files/FileInformation.h"

namespace tools {

static void Put(std::string& bytes, std::size_t offset, std::uint64_t value, std::size_t size) {
  if (bytes.size() < offset + size) bytes.resize(offset + size);
  for (std::size_t i = 0; i < size; ++i) bytes[offset + i] = static_cast<char>(value >> (8 * i));
}

enum class PeKind { Pe32, Pe32Plus };

/// A program that is nothing but headers and one section: an icon and version 1.20.300.65535.
static std::string MakeProgram(PeKind kind) {
  const bool pe32Plus = kind == PeKind::Pe32Plus;
  struct Field {
    std::size_t offset;
    std::uint32_t value;
    std::size_t size;
  };
  std::string program = "MZ";
  const auto put = [&](std::size_t base, const std::vector<Field>& fields) {
    for (const Field& field : fields) Put(program, base + field.offset, field.value, field.size);
  };
  const std::size_t extra = pe32Plus ? 16 : 0;
  const std::uint32_t optionalBytes = pe32Plus ? 0xF0 : 0xE0;
  // Headers: sections, size and kind of the optional header; then its data directories.
  put(0, {{60, 0x80, 4}, {0x80, 0x4550, 4}, {0x86, 1, 2}, {0x94, optionalBytes, 2}});
  put(0x98, {{0, pe32Plus ? 0x20BU : 0x10BU, 2}, {92 + extra, 16, 4}, {112 + extra, 0x3000, 4}});
  put(0x98 + optionalBytes, {{12, 0x3000, 4}, {16, 0x200, 4}, {20, 0x400, 4}});
  // Resources: the types icon and version, its one name, its one language, its data.
  put(0x400, {{14, 2, 2}, {16, 3, 4}, {20, 0x80000000, 4}, {24, 16, 4}, {28, 0x80000020, 4}});
  put(0x420, {{14, 1, 2}, {20, 0x80000040, 4}});
  put(0x440, {{14, 1, 2}, {20, 0x60, 4}, {32, 0x3080, 4}, {36, 92, 4}});
  put(0x480, {{0, 92, 2}, {2, 52, 2}, {40, 0xFEEF04BD, 4}, {48, 0x10014, 4}, {52, 0x12CFFFF, 4}});
  put(0x5FF, {{0, 0, 1}});
  return program;
}

static std::string VersionOf(const std::string& program) {
  return PeVersionText([&program](std::uint64_t offset, std::size_t size) {
    EXPECT_LT(size, 3U << 20);
    return offset < program.size() ? program.substr(offset, size) : std::string();
  });
}

TEST(PeVersionTest, ReadsTheFixedFileVersionOfProgramsOnly) {
  EXPECT_EQ(VersionOf(MakeProgram(PeKind::Pe32)), "1.20.300.65535");
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.dll", MakeProgram(PeKind::Pe32Plus));
  EXPECT_EQ(InformationOf(path).version, "1.20.300.65535");
  for (const std::string& other : {folder.Path(), folder.Path("missing"), std::string()}) {
    EXPECT_FALSE(InformationOf(other).exists) << other;
  }
  EXPECT_EQ(VersionOf("#!/bin/sh\n" + std::string(500, ' ')), "");
}

TEST(PeVersionTest, HasNoVersionOfAFileThatIsCutOff) {
  const std::string program = MakeProgram(PeKind::Pe32Plus);
  for (std::size_t size = 0; size < 0x480 + 92; ++size) {
    EXPECT_EQ(VersionOf(program.substr(0, size)), "") << size;
  }
}

}  // namespace tools
