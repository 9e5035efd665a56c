// Where the last block of a deflate stream (RFC 1951) begins.
#pragma once

#include <zlib.h>

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace tools {

/// A deflate stream does not say where its blocks begin: they are found by decoding it. To find the
/// last one alone, this looks for it from the stream's end: a place that reads as the header of a
/// final block with Huffman codes of its own (RFC 1951, 3.2.7), whose data ends where the stream
/// ends. No other place looks like that by chance, but only decoding the stream proves it.
///
/// What it gains: the proof by libdeflate's decoder is quicker than zlib's walk from block to
/// block, which is what remains without it. Measured in processor time of whole builds: 7 % on 350
/// MB of binaries (4.7 instead of 5.0 times as fast as zip -6), 5 % on one file of 700 MB.
///
/// Not for use by several threads at a time.
class LastBlockFinder {
 public:
  /// Raises std::bad_alloc.
  LastBlockFinder();
  ~LastBlockFinder();
  LastBlockFinder(const LastBlockFinder&) = delete;
  LastBlockFinder& operator=(const LastBlockFinder&) = delete;

  struct Place {
    std::size_t beginBit = 0;  ///< of the block's header, counted from the stream's start
    std::size_t endBit = 0;    ///< behind the block
  };

  /// `sourceBytes` is how much the whole stream decodes to. Gives nothing where no place is likely:
  /// the last block is of another kind, or too short or too far from the end.
  [[nodiscard]] std::optional<Place> Find(std::string_view deflated, std::size_t sourceBytes);

 private:
  [[nodiscard]] std::optional<Place> Decode(std::string_view deflated, std::size_t beginBit,
                                            std::size_t maximumBytes);

  z_stream stream_{};
  std::vector<unsigned char> anything_;
  std::vector<unsigned char> output_;
};

}  // namespace tools
