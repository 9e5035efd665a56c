#include "tools/archive/PackingNote.h"

namespace tools {

namespace {

constexpr std::size_t kPartBytes = 12;
constexpr std::size_t kRunBytes = 4;
// A member's whole extra field has a length of 16 bits; some of it is for the Zip64 form.
constexpr std::size_t kMaximumBytes = 0xFFFF - 64;

}  // namespace

void NotePart(std::string& note, const PackedPart& part) {
  if (note.size() + kPartBytes > kMaximumBytes) return;
  AppendNumber(note, part.packedBytes);
  AppendNumber(note, part.crc32);
  AppendNumber(note, part.sum);
}

std::vector<PackedPart> PartsOf(std::string_view note) {
  std::vector<PackedPart> parts;
  if (note.size() % kPartBytes != 0) return parts;
  for (std::size_t at = 0; at < note.size(); at += kPartBytes) {
    parts.push_back({NumberAt<std::uint32_t>(note, at), NumberAt<std::uint32_t>(note, at + 4),
                     NumberAt<std::uint32_t>(note, at + 8)});
  }
  return parts;
}

std::string NoteOfRun(std::uint32_t sum) {
  std::string note;
  AppendNumber(note, sum);
  return note;
}

bool IsNoteOfRun(std::string_view note, std::uint32_t& sum) {
  if (note.size() != kRunBytes) return false;
  sum = NumberAt<std::uint32_t>(note, 0);
  return true;
}

}  // namespace tools
