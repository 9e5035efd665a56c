// What an archive notes in its directory for the next build, which takes packed bytes out of it: a
// field of each member's extra field (APPNOTE 4.5.1), under a number of this program's own. Numbers
// in it have four bytes, the lowest one first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tools {

inline constexpr std::uint16_t kPackingNoteId = 0x7750;

/// One block of a member that was packed in several.
struct PackedPart {
  std::uint32_t packedBytes = 0;
  std::uint32_t crc32 = 0;  ///< of the source's bytes
  std::uint32_t sum = 0;    ///< CRC-32 of the packed bytes; 0 of bytes that are stored as they are
};

/// Adds the next part to the note of such a member. The parts of 16 GiB find room; later ones are
/// left out.
void NotePart(std::string& note, const PackedPart& part);
/// The parts of a note; none when it is no such note.
[[nodiscard]] std::vector<PackedPart> PartsOf(std::string_view note);

/// Small members are packed in runs. The last one of a run notes the CRC-32 of all its bytes,
/// headers included.
[[nodiscard]] std::string NoteOfRun(std::uint32_t sum);
/// True for such a note, whose sum `sum` receives.
[[nodiscard]] bool IsNoteOfRun(std::string_view note, std::uint32_t& sum);

/// Numbers as a zip archive has them.
template <typename Number>
void AppendNumber(std::string& bytes, Number value) {
  for (std::size_t i = 0; i < sizeof(Number); ++i) {
    bytes.push_back(static_cast<char>((static_cast<std::uint64_t>(value) >> (8 * i)) & 0xFFU));
  }
}
/// The number at `offset`, all of whose bytes must be there.
template <typename Number>
[[nodiscard]] Number NumberAt(std::string_view bytes, std::size_t offset) {
  std::uint64_t value = 0;
  for (std::size_t i = sizeof(Number); i-- > 0;) {
    value = value << 8U | static_cast<unsigned char>(bytes[offset + i]);
  }
  return static_cast<Number>(value);
}

}  // namespace tools
