#include "tools/archive/BlockTaker.h"

#include <algorithm>
#include <span>

namespace tools {

namespace {

// Equal blocks are one as good as the other; others of the same size and sum are hardly ever found
// in an honest archive.
constexpr std::size_t kMostTries = 2;

}  // namespace

std::optional<std::string_view> BlockTaker::Take(PackedForm form, std::string_view source,
                                                 std::uint32_t crc32) {
  std::size_t tries = 0;
  const std::span<const EarlierArchive::Block> blocks = earlier_.Find(source.size(), crc32);
  const std::uint32_t loaded = loaded_;
  // Of equal files the one at hand: else each of them would have another piece read.
  for (const bool isAtHand : {true, false}) {
    for (const EarlierArchive::Block& block : blocks) {
      const bool isOfForm = block.form == form || block.form == PackedForm::Stored;
      if (block.piece == EarlierArchive::kNoPiece || !isOfForm) continue;
      if ((block.piece == loaded) != isAtHand) continue;
      if (++tries > kMostTries) return std::nullopt;
      if (const auto packed = Proven(block, form, source)) return packed;
    }
  }
  return std::nullopt;
}

std::optional<std::string_view> BlockTaker::Proven(const EarlierArchive::Block& block,
                                                   PackedForm form, std::string_view source) {
  if (!Load(block.piece)) return std::nullopt;
  const std::string_view packed = std::string_view(piece_).substr(block.offset, block.packedBytes);
  if (block.form == PackedForm::Stored) {
    if (form == PackedForm::Stream && packed == source) return source;
    return std::nullopt;
  }
  const bool isProven = form == PackedForm::Part ? deflater_.IsPartOf(source, piece_)
                                                 : deflater_.IsStreamOf(source, packed);
  return isProven ? std::optional(packed) : std::nullopt;
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
