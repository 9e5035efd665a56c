// Deflates a buffer at once, and makes the blocks of a large file joinable into one deflate stream.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct libdeflate_compressor;

namespace tools {

/// Where a block stands in its stream, which goes on behind all but the last one.
enum class BlockPlace : std::uint8_t { Inner, Last };

/// One thread's compressor with its buffers.
class BlockDeflater {
 public:
  /// `level` is libdeflate's, 0 to 12; sources hold up to `maximumBytes`. Raises std::bad_alloc.
  BlockDeflater(int level, std::size_t maximumBytes);
  ~BlockDeflater();
  BlockDeflater(const BlockDeflater&) = delete;
  BlockDeflater& operator=(const BlockDeflater&) = delete;

  /// False where deflating `source` is not worth the time: a sample of it, spread over the whole,
  /// gains less than a hundredth. Small sources are always worth a try.
  [[nodiscard]] bool IsWorthIt(std::string_view source);

  /// `source` as a deflate stream (RFC 1951) of its own; valid until the next call.
  [[nodiscard]] std::string_view Deflate(std::string_view source);

  /// `source` as a part of a deflate stream that goes on: no block in it is the final one and it
  /// ends on a byte, so that another deflate stream, or part, can follow. The part has been decoded
  /// and found equal to `source`. Valid until the next call. Raises std::logic_error when the
  /// decoded bytes differ.
  [[nodiscard]] std::string_view DeflatePart(std::string_view source);

  /// True when `deflated`, to its last byte, is a stream of its own that decodes to `source`.
  [[nodiscard]] bool IsStreamOf(std::string_view source, std::string_view deflated);
  /// True when `deflated` decodes to `source` and leaves off as DeflatePart does, so that any
  /// stream or part can follow, whoever made the bytes. The last kFollowerBytes of `deflated` are
  /// not of the part: they are room to work in.
  [[nodiscard]] bool IsPartOf(std::string_view source, std::span<char> deflated);
  static constexpr std::size_t kFollowerBytes = 13;

 private:
  class Continuation;
  struct FreeCompressor {
    void operator()(libdeflate_compressor* compressor) const;
  };

  std::unique_ptr<libdeflate_compressor, FreeCompressor> compressor_;
  std::unique_ptr<libdeflate_compressor, FreeCompressor> sampler_;
  std::size_t capacity_;
  std::unique_ptr<char[]> deflated_;
  std::unique_ptr<Continuation> continuation_;
};

/// `source` as a part of a deflate stream in stored blocks (RFC 1951, 3.2.4).
[[nodiscard]] std::string StoredBlocks(std::string_view source, BlockPlace place);

/// The CRC-32 of a zip member's bytes.
[[nodiscard]] std::uint32_t Crc32(std::string_view bytes);
/// The CRC-32 of two runs of bytes, one behind the other, from theirs and the second one's length.
[[nodiscard]] std::uint32_t JoinCrc32(std::uint32_t first, std::uint32_t second,
                                      std::size_t secondBytes);

}  // namespace tools
