// The archive of an earlier build, as a store of what has been packed before.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/archive/PackingNote.h"
#include "tools/files/InputFile.h"

namespace tools {

/// How a block lies in an archive.
enum class PackedForm : std::uint8_t {
  Stored,
  Stream,  ///< a deflate stream of its own, or the end of one
  Part     ///< a part of a deflate stream that goes on
};

/// Nothing that it says is to be trusted before it has been decoded and compared: what is damaged
/// mostly shows in the sums of the pieces, and what somebody made up does not. An archive that
/// cannot be read, is no whole one or was packed in another way holds nothing; that is no error,
/// since everything can be packed anew. Several threads may use it at a time.
class EarlierArchive {
 public:
  /// Bytes that lie in the archive in one go, and their CRC-32.
  struct Piece {
    std::uint64_t offset = 0;
    std::uint32_t bytes = 0;
    std::uint32_t sum = 0;
  };
  static constexpr std::uint32_t kNoPiece = 0xFFFFFFFF;

  struct Block {
    std::uint32_t sourceBytes = 0;
    std::uint32_t crc32 = 0;  ///< of the source's bytes
    std::uint32_t piece = kNoPiece;
    std::uint32_t offset = 0;  ///< in the piece
    std::uint32_t packedBytes = 0;
    PackedForm form = PackedForm::Stored;
  };

  /// Without a file: it holds nothing.
  EarlierArchive() = default;
  /// Opens and reads the archive when its comment is `mark`. `blockBytes` is what large files are
  /// cut into.
  EarlierArchive(const std::string& path, std::string_view mark, std::size_t blockBytes);

  /// The blocks of this size and sum.
  [[nodiscard]] std::span<const Block> Find(std::size_t sourceBytes, std::uint32_t crc32) const;
  /// Reads a piece; its `bytes` come first in the buffer. False when its sum is wrong.
  [[nodiscard]] bool Read(std::uint32_t piece, std::span<char> buffer) const;
  [[nodiscard]] const Piece& PieceAt(std::uint32_t index) const { return pieces_[index]; }

 private:
  struct Record;
  class Directory;

  /// False where the directory contradicts itself.
  [[nodiscard]] bool ReadDirectory(std::string_view mark, std::size_t blockBytes);
  [[nodiscard]] bool AddParts(const Record& record, std::size_t blockBytes);
  [[nodiscard]] bool AddToRun(const Record& record, std::size_t& runBegin);

  std::unique_ptr<InputFile> file_;
  std::uint64_t contentBytes_ = 0;  // before the directory
  std::vector<Block> blocks_;       // by size and sum
  std::vector<Piece> pieces_;
};

}  // namespace tools
