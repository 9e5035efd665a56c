#include "tools/archive/BlockDeflate.h"

#include <libdeflate.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <random>
#include <stdexcept>

#include "tools/archive/LastBlock.h"
#include "tools/archive/PackingNote.h"

namespace tools {

namespace {

constexpr unsigned kFinalBlockBit = 1;

// What follows the three header bits of an empty stored block (RFC 1951, 3.2.4), once the rest of
// their byte is filled up: LEN 0 and its complement.
constexpr std::string_view kEmptyStoredBlock("\0\0\xFF\xFF", 4);
constexpr std::size_t kStoredHeaderBits = 3;
// The header bits may need one more byte than the stream had.
constexpr std::size_t kJoinBytes = kEmptyStoredBlock.size() + 1;

// Small enough to stay in the processor's nearest caches.
constexpr std::size_t kDecodeBytes = 65536;

constexpr std::size_t kLargestStoredBlock = 65535;
constexpr std::size_t kStoredBlockHeaderBytes = 5;  // of one that begins on a byte

// A sample is made of pieces: long enough for a compressor to show what it can do, and together so
// few that trying them takes little of the time that deflating everything would.
constexpr int kSampleLevel = 1;
constexpr std::size_t kPieceBytes = 4096;
constexpr std::size_t kSourceBytesPerPiece = 32768;
constexpr std::size_t kMostPieces = 16;
constexpr std::size_t kLeastSampled = 65536;
constexpr std::size_t kSampleGain = 100;  // one byte of so many, at least

// Pieces at equal distances, the first at the begin and the last at the end.
std::string SampleOf(std::string_view source) {
  const std::size_t pieces = std::min(source.size() / kSourceBytesPerPiece, kMostPieces);
  std::string sample;
  sample.reserve(pieces * kPieceBytes);
  for (std::size_t i = 0; i < pieces; ++i) {
    sample += source.substr((source.size() - kPieceBytes) * i / (pieces - 1), kPieceBytes);
  }
  return sample;
}

}  // namespace

// Turns a whole deflate stream into one that goes on, by clearing its final block's final bit.
// Where that block is not found from the end, the blocks before it are decoded: the decoder stops
// at each boundary; a final block has its final bit cleared there, in the stream and in the bits
// that the decoder has already taken. The decoder then runs to that block's exact end as well: it
// waits for another block.
class BlockDeflater::Continuation {
 public:
  explicit Continuation(std::size_t maximumBytes)
      : decompressor_(libdeflate_alloc_decompressor()),
        whole_(std::make_unique_for_overwrite<char[]>(maximumBytes + kMarkBytes)),
        output_(kDecodeBytes) {
    if (!decompressor_ || inflateInit2(&stream_, -MAX_WBITS) != Z_OK) throw std::bad_alloc();
    std::random_device random;
    for (char& byte : mark_) byte = static_cast<char>(random());
  }
  ~Continuation() { inflateEnd(&stream_); }
  Continuation(const Continuation&) = delete;
  Continuation& operator=(const Continuation&) = delete;

  // `deflated` has room for kJoinBytes more than its `size`. Returns the new size.
  std::size_t Open(char* deflated, std::size_t size, std::string_view source) {
    Begin(deflated, size);
    if (const auto place = finder_.Find({deflated, size}, source.size())) {
      const unsigned char lastByte = bytes_[size - 1];
      ToggleBit(place->beginBit);
      const std::size_t openSize = AppendEmptyBlock(place->endBit);
      if (DecodesTo(source, openSize, place->endBit)) return openSize;
      bytes_[size - 1] = lastByte;
      ToggleBit(place->beginBit);
    }
    return OpenByDecoding(size, source);
  }

  bool IsStreamOf(std::string_view source, std::string_view deflated) {
    return DecodeWhole(deflated, source.size()) &&
           std::memcmp(whole_.get(), source.data(), source.size()) == 0;
  }

  // A stored block put behind a part is read as that block only when the part leaves off where a
  // block may begin, without having ended the stream. Bytes that were made to be read otherwise
  // would have to bring forth the block's content, which nobody knew when they were made.
  bool IsPartOf(std::string_view source, std::span<char> deflated) {
    const std::string follower = StoredBlocks({mark_.data(), mark_.size()}, BlockPlace::Last);
    // A stored block that is open at the part's end would take the follower as its content, and
    // give the source's own end where that reads as the follower's header.
    if (source.ends_with(std::string_view(follower).substr(0, kStoredBlockHeaderBytes)))
      return false;
    std::ranges::copy(follower, deflated.last(kFollowerBytes).begin());
    return DecodeWhole({deflated.data(), deflated.size()}, source.size() + mark_.size()) &&
           std::memcmp(whole_.get(), source.data(), source.size()) == 0 &&
           std::memcmp(whole_.get() + source.size(), mark_.data(), mark_.size()) == 0;
  }

 private:
  static constexpr std::size_t kMarkBytes = kFollowerBytes - kStoredBlockHeaderBytes;

  // All of `deflated`, to `bytes` in whole_.
  bool DecodeWhole(std::string_view deflated, std::size_t bytes) {
    std::size_t taken = 0;
    return libdeflate_deflate_decompress_ex(decompressor_.get(), deflated.data(), deflated.size(),
                                            whole_.get(), bytes, &taken,
                                            nullptr) == LIBDEFLATE_SUCCESS &&
           taken == deflated.size();
  }

  std::size_t OpenByDecoding(std::size_t size, std::string_view source) {
    source_ = source;
    bool finalReached = ClearFinalBit(0);
    while (true) {
      DecodeBlock();
      if (finalReached) break;
      finalReached = ClearFinalBit(EndBit());
    }
    if (!source_.empty() || (EndBit() + 7) / 8 != size) Fail();
    return AppendEmptyBlock(EndBit());
  }

  void ToggleBit(std::size_t position) {
    bytes_[position / 8] = static_cast<unsigned char>(bytes_[position / 8] ^ 1U << position % 8);
  }

  // The empty block at the end becomes the final one for as long as this takes.
  bool DecodesTo(std::string_view source, std::size_t size, std::size_t emptyBlockBit) {
    ToggleBit(emptyBlockBit);
    const libdeflate_result result = libdeflate_deflate_decompress(
        decompressor_.get(), bytes_, size, whole_.get(), source.size(), nullptr);
    ToggleBit(emptyBlockBit);
    return result == LIBDEFLATE_SUCCESS &&
           std::memcmp(whole_.get(), source.data(), source.size()) == 0;
  }

  void Begin(char* deflated, std::size_t size) {
    inflateReset(&stream_);
    bytes_ = reinterpret_cast<unsigned char*>(deflated);
    stream_.next_in = bytes_;
    stream_.avail_in = static_cast<uInt>(size);
  }

  [[nodiscard]] bool AtBoundary() const {
    constexpr int kAtBoundary = 128;
    return (stream_.data_type & kAtBoundary) != 0;
  }

  // The position behind the block decoded last, in bits of the stream.
  [[nodiscard]] std::size_t EndBit() const {
    const auto unusedBits = static_cast<std::size_t>(stream_.data_type) & 7U;
    return static_cast<std::size_t>(stream_.next_in - bytes_) * 8 - unusedBits;
  }

  // Clears the bit at the start of a block when it is set; tells whether it was.
  bool ClearFinalBit(std::size_t position) {
    unsigned char& byte = bytes_[position / 8];
    const unsigned shift = position % 8;
    if ((byte & (kFinalBlockBit << shift)) == 0) return false;
    byte = static_cast<unsigned char>(byte & ~(kFinalBlockBit << shift));
    if (shift != 0) {
      inflatePrime(&stream_, -1, 0);  // forgets the bits that it holds
      inflatePrime(&stream_, 8 - static_cast<int>(shift), byte >> shift);
    }
    return true;
  }

  // Decodes up to the next boundary of blocks, comparing with the source.
  void DecodeBlock() {
    do {
      stream_.next_out = output_.data();
      stream_.avail_out = static_cast<uInt>(output_.size());
      // A step that neither takes input nor gives output, such as the code that ends a block when
      // its bits are already held, counts as an error of the buffers.
      const int result = inflate(&stream_, Z_BLOCK);
      if (result != Z_OK && (result != Z_BUF_ERROR || !AtBoundary())) Fail();
      const std::size_t count = output_.size() - stream_.avail_out;
      if (count > source_.size() || std::memcmp(output_.data(), source_.data(), count) != 0) Fail();
      source_.remove_prefix(count);
    } while (!AtBoundary());
  }

  std::size_t AppendEmptyBlock(std::size_t endBit) {
    const std::size_t size = (endBit + kStoredHeaderBits + 7) / 8;
    // Bits behind the stream's end count as header and padding: they have to be 0.
    if (endBit % 8 != 0) {
      bytes_[endBit / 8] =
          static_cast<unsigned char>(bytes_[endBit / 8] & ((1U << (endBit % 8)) - 1U));
    }
    for (std::size_t i = (endBit + 7) / 8; i < size; ++i) bytes_[i] = 0;
    std::memcpy(bytes_ + size, kEmptyStoredBlock.data(), kEmptyStoredBlock.size());
    return size + kEmptyStoredBlock.size();
  }

  [[noreturn]] static void Fail() {
    throw std::logic_error("a deflated block does not decode to its source");
  }

  struct FreeDecompressor {
    void operator()(libdeflate_decompressor* decompressor) const {
      libdeflate_free_decompressor(decompressor);
    }
  };

  LastBlockFinder finder_;
  std::array<char, kMarkBytes> mark_{};
  std::unique_ptr<libdeflate_decompressor, FreeDecompressor> decompressor_;
  std::unique_ptr<char[]> whole_;
  z_stream stream_{};
  std::vector<unsigned char> output_;
  unsigned char* bytes_ = nullptr;
  std::string_view source_;  // what is still to be decoded
};

void BlockDeflater::FreeCompressor::operator()(libdeflate_compressor* compressor) const {
  libdeflate_free_compressor(compressor);
}

BlockDeflater::BlockDeflater(int level, std::size_t maximumBytes)
    : compressor_(libdeflate_alloc_compressor(level)),
      sampler_(libdeflate_alloc_compressor(kSampleLevel)) {
  if (!compressor_ || !sampler_) throw std::bad_alloc();
  capacity_ = libdeflate_deflate_compress_bound(compressor_.get(), maximumBytes);
  // Not initialised: memory that no source asks for is never touched.
  deflated_ = std::make_unique_for_overwrite<char[]>(capacity_ + kJoinBytes);
  continuation_ = std::make_unique<Continuation>(maximumBytes);
}

BlockDeflater::~BlockDeflater() = default;

bool BlockDeflater::IsWorthIt(std::string_view source) {
  if (source.size() < kLeastSampled) return true;
  const std::string sample = SampleOf(source);
  const std::size_t size = libdeflate_deflate_compress(sampler_.get(), sample.data(), sample.size(),
                                                       deflated_.get(), sample.size());
  return size != 0 && sample.size() - size >= sample.size() / kSampleGain;
}

std::string_view BlockDeflater::Deflate(std::string_view source) {
  const std::size_t size = libdeflate_deflate_compress(compressor_.get(), source.data(),
                                                       source.size(), deflated_.get(), capacity_);
  if (size == 0) throw std::logic_error("a block is larger than the compressor was made for");
  return {deflated_.get(), size};
}

std::string_view BlockDeflater::DeflatePart(std::string_view source) {
  const std::size_t size = Deflate(source).size();
  return {deflated_.get(), continuation_->Open(deflated_.get(), size, source)};
}

bool BlockDeflater::IsStreamOf(std::string_view source, std::string_view deflated) {
  return continuation_->IsStreamOf(source, deflated);
}

bool BlockDeflater::IsPartOf(std::string_view source, std::span<char> deflated) {
  return continuation_->IsPartOf(source, deflated);
}

std::string StoredBlocks(std::string_view source, BlockPlace place) {
  std::string blocks;
  blocks.reserve(source.size() +
                 (source.size() / kLargestStoredBlock + 1) * kStoredBlockHeaderBytes);
  do {
    const std::string_view block = source.substr(0, kLargestStoredBlock);
    source.remove_prefix(block.size());
    const bool endsStream = place == BlockPlace::Last && source.empty();
    blocks.push_back(static_cast<char>(endsStream ? kFinalBlockBit : 0));
    AppendNumber(blocks, static_cast<std::uint16_t>(block.size()));
    AppendNumber(blocks, static_cast<std::uint16_t>(~block.size()));
    blocks += block;
  } while (!source.empty());
  return blocks;
}

std::uint32_t Crc32(std::string_view bytes) {
  return libdeflate_crc32(0, bytes.data(), bytes.size());
}

std::uint32_t JoinCrc32(std::uint32_t first, std::uint32_t second, std::size_t secondBytes) {
  return static_cast<std::uint32_t>(
      crc32_combine(first, second, static_cast<z_off_t>(secondBytes)));
}

}  // namespace tools
