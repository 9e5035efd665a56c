// An archive: its directory is read, and every member unpacked.
#include "setup/Archive.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/Error.h"

void tests::Fuzz(std::string_view input) {
  constexpr std::size_t kEnoughBytes = 1 << 20;
  static const TemporaryFolder folder;
  const std::string path = folder.Write("a.zip", std::string(input));
  try {
    const setup::Archive archive(path);
    setup::Unpacker unpacker;
    std::size_t bytes = 0;
    for (const setup::Member& member : archive.Members()) {
      std::uint64_t unpacked = 0;
      try {
        unpacker.Unpack(archive, member, [&](std::string_view part) {
          unpacked += part.size();
          bytes += part.size();
          if (bytes > kEnoughBytes) throw tools::Error("enough");
        });
        Require(unpacked == member.size, "a member has the size that it says");
      } catch (const tools::Error& error) {
        Require(*error.what() != '\0', "an error has a text");
      }
      Require(unpacked <= member.size, "no more comes than is said");
      if (bytes > kEnoughBytes) return;
    }
  } catch (const tools::Error& error) {
    Require(*error.what() != '\0', "an error has a text");
  }
}
