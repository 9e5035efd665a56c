// Takes packed bytes out of an earlier archive: one thread's part of it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tools/archive/BlockDeflate.h"
#include "tools/archive/EarlierArchive.h"

namespace tools {

class BlockTaker {
 public:
  /// Both must outlive the taker.
  BlockTaker(const EarlierArchive& earlier, BlockDeflater& deflater)
      : earlier_(earlier), deflater_(deflater) {}

  /// The bytes that `source` was packed to, in the form asked for; `source` itself where it was
  /// stored. They have been decoded and found equal to it. Valid until the next call.
  [[nodiscard]] std::optional<std::string_view> Take(PackedForm form, std::string_view source,
                                                     std::uint32_t crc32);
  /// True when a large file's block of this size and sum was stored. Nothing is compared: what is
  /// stored anew needs no proof.
  [[nodiscard]] bool WasStored(std::string_view source, std::uint32_t crc32) const;

 private:
  /// The block's packed bytes, when they decode to `source`.
  [[nodiscard]] std::optional<std::string_view> Proven(const EarlierArchive::Block& block,
                                                       PackedForm form, std::string_view source);
  [[nodiscard]] bool Load(std::uint32_t piece);

  const EarlierArchive& earlier_;
  BlockDeflater& deflater_;
  // The piece read last, since members mostly come in the order in which they came before; behind
  // it the room that the proof of a part asks for.
  std::string piece_;
  std::uint32_t loaded_ = EarlierArchive::kNoPiece;
  bool isWhole_ = false;
};

}  // namespace tools
