#include "tools/archive/LastBlock.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <new>

namespace tools {

namespace {

// Small enough to stay in the processor's nearest caches.
constexpr std::size_t kOutputBytes = 65536;
constexpr std::size_t kWindowBytes = 32768;  // how far back a deflate stream refers

// What begins at a wrong place by chance ends sooner.
constexpr std::size_t kLikelyBytes = 4096;
// The search stops there: decoding everything is quicker then.
constexpr std::size_t kSearchedBytes = 160 * 1024;

// RFC 1951, 3.2.3 and 3.2.7.
constexpr std::uint64_t kFinalBlockWithCodes = 0b101;
constexpr std::uint64_t kMaximumLengthCodes = 29;
constexpr std::uint64_t kMaximumDistanceCodes = 29;
constexpr std::size_t kHeaderBits = 17;
constexpr std::size_t kLengthBits = 3;
constexpr std::size_t kLongestCode = 7;

// The bits from a place on, 57 at least; bytes behind the stream read as 0.
std::uint64_t BitsAt(std::string_view bytes, std::size_t bit) {
  std::array<unsigned char, 8> piece{};
  const std::size_t begin = bit / 8;
  if (begin < bytes.size()) {
    std::memcpy(piece.data(), bytes.data() + begin, std::min(piece.size(), bytes.size() - begin));
  }
  std::uint64_t bits = 0;
  for (std::size_t i = piece.size(); i > 0; --i) bits = bits << 8U | piece[i - 1];
  return bits >> (bit % 8);
}

// True where the code of the code lengths, which comes first, uses all of its code space.
bool HasWholeCode(std::string_view deflated, std::size_t beginBit, std::uint64_t header) {
  const std::size_t count = ((header >> 13U) & 15U) + 4;
  std::uint64_t lengths = BitsAt(deflated, beginBit + kHeaderBits);
  unsigned used = 0;
  for (std::size_t i = 0; i < count; ++i, lengths >>= kLengthBits) {
    const unsigned length = lengths & kLongestCode;
    if (length != 0) used += 1U << (kLongestCode - length);
  }
  return used == 1U << kLongestCode;
}

bool LooksLikeLastBlock(std::string_view deflated, std::size_t beginBit, std::uint64_t header) {
  return (header & 7U) == kFinalBlockWithCodes && ((header >> 3U) & 31U) <= kMaximumLengthCodes &&
         ((header >> 8U) & 31U) <= kMaximumDistanceCodes &&
         HasWholeCode(deflated, beginBit, header);
}

}  // namespace

LastBlockFinder::LastBlockFinder() : anything_(kWindowBytes), output_(kOutputBytes) {
  if (inflateInit2(&stream_, -MAX_WBITS) != Z_OK) throw std::bad_alloc();
}

LastBlockFinder::~LastBlockFinder() { inflateEnd(&stream_); }

std::optional<LastBlockFinder::Place> LastBlockFinder::Find(std::string_view deflated,
                                                            std::size_t sourceBytes) {
  const std::size_t last = deflated.size() < kSearchedBytes ? 0 : deflated.size() - kSearchedBytes;
  for (std::size_t byte = deflated.size(); byte-- > last;) {
    const std::uint64_t bits = BitsAt(deflated, byte * 8);
    for (std::size_t shift = 8; shift-- > 0;) {
      const std::size_t beginBit = byte * 8 + shift;
      if (!LooksLikeLastBlock(deflated, beginBit, bits >> shift)) continue;
      if (const auto place = Decode(deflated, beginBit, sourceBytes)) return place;
    }
  }
  return std::nullopt;
}

// Decodes one block, which has to end in the stream's last byte. What it refers back to is unknown
// here, and does not matter to where it ends.
std::optional<LastBlockFinder::Place> LastBlockFinder::Decode(std::string_view deflated,
                                                              std::size_t beginBit,
                                                              std::size_t maximumBytes) {
  constexpr int kAtBoundary = 128;
  inflateReset(&stream_);
  inflateSetDictionary(&stream_, anything_.data(), static_cast<uInt>(anything_.size()));
  const auto* bytes = reinterpret_cast<const unsigned char*>(deflated.data());
  std::size_t next = beginBit / 8;
  if (const std::size_t taken = beginBit % 8; taken != 0) {
    inflatePrime(&stream_, 8 - static_cast<int>(taken), bytes[next++] >> taken);
  }
  stream_.next_in = const_cast<Bytef*>(bytes + next);
  stream_.avail_in = static_cast<uInt>(deflated.size() - next);
  std::size_t decoded = 0;
  bool atBoundary = false;
  while (!atBoundary) {
    stream_.next_out = output_.data();
    stream_.avail_out = static_cast<uInt>(output_.size());
    const int result = inflate(&stream_, Z_BLOCK);
    atBoundary = (stream_.data_type & kAtBoundary) != 0;
    if (result != Z_OK && (result != Z_BUF_ERROR || !atBoundary)) return std::nullopt;
    decoded += output_.size() - stream_.avail_out;
    if (decoded > maximumBytes) return std::nullopt;
  }
  const auto unusedBits = static_cast<std::size_t>(stream_.data_type) & 7U;
  const std::size_t endBit = static_cast<std::size_t>(stream_.next_in - bytes) * 8 - unusedBits;
  if (decoded < kLikelyBytes || (endBit + 7) / 8 != deflated.size()) return std::nullopt;
  return Place{beginBit, endBit};
}

}  // namespace tools
