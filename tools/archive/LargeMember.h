// A member whose source is packed in several blocks.
#pragma once

#include <cstdint>
#include <memory>
#include <stop_token>
#include <string>
#include <utility>

#include "tools/archive/ArchiveAssembler.h"
#include "tools/archive/BlockDeflate.h"
#include "tools/archive/MemberPacker.h"
#include "tools/files/Files.h"

namespace tools {

/// A file of more than a block, as it was when it was added.
struct ArchiveSource {
  std::string path;
  std::string memberName;
  FileStamp stamp;
  FileTime modified{};  ///< that the member gets
};

/// Puts the blocks of one file together, in their order. Blocks are deflated or the source's bytes
/// as they are: a member of both kinds is one deflate stream with stored blocks in it, and one that
/// holds nothing else is stored. Which of them it is may turn out late; what has been written is
/// then written once more.
class LargeMember {
 public:
  /// `assembler` must outlive the member.
  LargeMember(ArchiveAssembler& assembler, ArchiveSource source, std::size_t blockBytes)
      : assembler_(assembler), source_(std::move(source)), blockBytes_(blockBytes) {}

  [[nodiscard]] std::uint64_t Blocks() const;
  /// Of the block with this index, from 0.
  [[nodiscard]] BlockPlace PlaceOf(std::uint64_t index) const;

  /// Adds the next block; the first one begins the member and the last one ends it. The member
  /// stays incomplete when `stop` is requested. Raises Error.
  void Append(const PackedBlock& block, const std::stop_token& stop);
  /// Takes back the blocks so far: the archive is without the member.
  void Abandon();

 private:
  void Write(const PackedBlock& block, BlockPlace place);
  void WriteAgain(ZipMethod method, const std::stop_token& stop);

  ArchiveAssembler& assembler_;
  ArchiveSource source_;
  std::size_t blockBytes_;
  std::uint64_t appended_ = 0;
  std::uint64_t takenOverBytes_ = 0;
};

}  // namespace tools
