#include "tools/archive/LargeMember.h"

#include "tools/Error.h"
#include "tools/files/InputFile.h"

namespace tools {

std::uint64_t LargeMember::Blocks() const {
  return (source_.stamp.size + blockBytes_ - 1) / blockBytes_;
}

BlockPlace LargeMember::PlaceOf(std::uint64_t index) const {
  return index + 1 == Blocks() ? BlockPlace::Last : BlockPlace::Inner;
}

void LargeMember::Append(const PackedBlock& block, const std::stop_token& stop) {
  if (appended_ == 0) {
    // The sizes settle the form of the header; both are known to stay below them.
    assembler_.BeginMember({.name = source_.memberName,
                            .method = block.isDeflated ? ZipMethod::Deflated : ZipMethod::Stored,
                            .modified = source_.modified,
                            .sourceBytes = source_.stamp.size,
                            .storedBytes = source_.stamp.size,
                            .isNoted = true});
  }
  const ZipMember& member = assembler_.CurrentMember();
  if (block.isDeflated && member.method == ZipMethod::Stored) {
    WriteAgain(ZipMethod::Deflated, stop);
  }
  const BlockPlace place = PlaceOf(appended_++);
  Write(block, place);
  if (block.isTakenOver) takenOverBytes_ += block.sourceBytes;
  if (place != BlockPlace::Last) return;
  // What the deflated blocks gained is less than what the stored ones take beyond their content.
  const bool isDeflated = member.method == ZipMethod::Deflated;
  if (isDeflated && member.storedBytes >= member.sourceBytes) WriteAgain(ZipMethod::Stored, stop);
  if (stop.stop_requested()) return;
  assembler_.EndMember();
  assembler_.CountTakenOver(takenOverBytes_ == source_.stamp.size ? 1 : 0, takenOverBytes_);
}

void LargeMember::Abandon() {
  if (appended_ > 0) assembler_.DropMember();
}

void LargeMember::Write(const PackedBlock& block, BlockPlace place) {
  const bool isStream = assembler_.CurrentMember().method == ZipMethod::Deflated;
  if (isStream && !block.isDeflated) {
    assembler_.AppendData(StoredBlocks(block.data, place), block);
  } else {
    assembler_.AppendData(block.data, block);
  }
}

// The blocks so far, out of the file, with nothing in them deflated.
void LargeMember::WriteAgain(ZipMethod method, const std::stop_token& stop) {
  const std::uint32_t crc32 = assembler_.CurrentMember().crc32;
  const std::uint64_t sourceBytes = assembler_.CurrentMember().sourceBytes;
  assembler_.RestartMember(method);
  const InputFile file(source_.path);
  PackedBlock block{.isDeflated = false};
  std::string content(blockBytes_, '\0');
  for (std::uint64_t i = 0; i < appended_ && !stop.stop_requested(); ++i) {
    block.data = std::string_view(content).substr(0, file.ReadAt(i * blockBytes_, content));
    block.crc32 = Crc32(block.data);
    block.sourceBytes = block.data.size();
    Write(block, PlaceOf(i));
  }
  const ZipMember& member = assembler_.CurrentMember();
  const bool isSame = member.sourceBytes == sourceBytes && member.crc32 == crc32;
  if (isSame || stop.stop_requested()) return;
  throw PathError("Die Datei wurde während des Packens geändert", source_.path, {});
}

}  // namespace tools
