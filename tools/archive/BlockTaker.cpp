#include "tools/archive/BlockTaker.h"

#include <algorithm>

namespace tools {

namespace {

// Equal blocks are one as good as the other; others of the same size and sum are hardly ever found
// in an honest archive.
constexpr std::size_t kMostTries = 2;

}  // namespace

std::optional<std::string_view> BlockTaker::Take(PackedForm form, std::string_view source,
                                                 std::uint32_t crc32) {
  std::size_t tries = 0;
  for (const EarlierArchive::Block& block : earlier_.Find(source.size(), crc32)) {
    const bool isStored = block.form == PackedForm::Stored;
    if (block.piece == EarlierArchive::kNoPiece || !(isStored || block.form == form)) continue;
    if (++tries > kMostTries) break;
    if (!Load(block.piece)) continue;
    const std::string_view packed =
        std::string_view(piece_).substr(block.offset, block.packedBytes);
    if (isStored) {
      if (form == PackedForm::Stream && packed == source) return source;
    } else if (form == PackedForm::Part ? deflater_.IsPartOf(source, piece_)
                                        : deflater_.IsStreamOf(source, packed)) {
      return packed;
    }
  }
  return std::nullopt;
}

bool BlockTaker::WasStored(std::string_view source, std::uint32_t crc32) const {
  return std::ranges::any_of(
      earlier_.Find(source.size(), crc32), [](const EarlierArchive::Block& block) {
        return block.form == PackedForm::Stored && block.piece == EarlierArchive::kNoPiece;
      });
}

bool BlockTaker::Load(std::uint32_t piece) {
  if (loaded_ == piece) return isWhole_;
  loaded_ = piece;
  piece_.resize(earlier_.PieceAt(piece).bytes + BlockDeflater::kFollowerBytes);
  isWhole_ = earlier_.Read(piece, piece_);
  return isWhole_;
}

}  // namespace tools
