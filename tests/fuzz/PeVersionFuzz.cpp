// A program file, for the reader of its version.
#include "tests/fuzz/Fuzz.h"
#include "tools/files/FileInformation.h"

void tests::Fuzz(std::string_view input) {
  const std::string version = tools::PeVersionText([&](std::uint64_t offset, std::size_t size) {
    Require(size < (3U << 20U), "it asks for a few bytes");
    return std::string(offset < input.size() ? input.substr(offset, size) : std::string_view());
  });
  Require(version.find_first_not_of("0123456789.") == version.npos, "a version is four numbers");
}
