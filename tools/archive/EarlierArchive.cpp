#include "tools/archive/EarlierArchive.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "tools/Error.h"
#include "tools/archive/BlockDeflate.h"
#include "tools/archive/ZipFormat.h"

namespace tools {

namespace {

// What bounds the memory, whatever a directory claims: 48 MB of blocks, and pieces that are read
// into buffers of this size at most.
constexpr std::size_t kMostBlocks = 2'000'000;
constexpr std::uint64_t kLargestPiece = std::uint64_t{16} << 20U;

constexpr std::size_t kReadBytes = std::size_t{1} << 18U;

auto ContentKeyOf(const EarlierArchive::Block& block) {
  return std::pair(block.sourceBytes, block.crc32);
}

}  // namespace

/// What the directory says about a member.
struct EarlierArchive::Record {
  std::uint16_t method = 0;
  std::uint32_t crc32 = 0;
  std::uint64_t storedBytes = 0;
  std::uint64_t sourceBytes = 0;
  std::uint64_t headerOffset = 0;
  std::uint64_t dataOffset = 0;
  std::string_view note;  ///< valid until the next record

  /// False when the record is not one that the writer makes.
  [[nodiscard]] bool Read(std::string_view fixed, std::string_view extra) {
    method = NumberAt<std::uint16_t>(fixed, 10);
    crc32 = NumberAt<std::uint32_t>(fixed, 16);
    storedBytes = NumberAt<std::uint32_t>(fixed, 20);
    sourceBytes = NumberAt<std::uint32_t>(fixed, 24);
    const std::uint64_t nameBytes = NumberAt<std::uint16_t>(fixed, 28);
    headerOffset = NumberAt<std::uint32_t>(fixed, 42);
    const bool hasZip64Sizes = sourceBytes == kElsewhere32;
    while (extra.size() >= 4) {
      const auto id = NumberAt<std::uint16_t>(extra, 0);
      const std::size_t size = NumberAt<std::uint16_t>(extra, 2);
      if (size > extra.size() - 4) return false;
      std::string_view field = extra.substr(4, size);
      extra.remove_prefix(4 + size);
      if (id == kPackingNoteId) {
        note = field;
        dataOffset = kLocalNoteBytes;
      }
      if (id != kZip64ExtraId) continue;
      for (std::uint64_t* const number : {&sourceBytes, &storedBytes, &headerOffset}) {
        if (*number != kElsewhere32) continue;
        if (field.size() < 8) return false;
        *number = NumberAt<std::uint64_t>(field, 0);
        field.remove_prefix(8);
      }
    }
    dataOffset += headerOffset + kLocalHeaderBytes + nameBytes;
    if (hasZip64Sizes) dataOffset += kLocalZip64ExtraBytes;
    return dataOffset > headerOffset && dataOffset + storedBytes >= dataOffset;
  }
};

/// The records of the directory, one after the other.
class EarlierArchive::Directory {
 public:
  /// `offset` and `bytes` are the directory's place.
  Directory(const InputFile& file, std::uint64_t offset, std::uint64_t bytes)
      : file_(file), offset_(offset), left_(bytes) {}

  /// False at the end; `isBroken` tells whether that came too early.
  [[nodiscard]] bool Next(Record& record, bool& isBroken) {
    if (left_ == 0 && at_ == buffer_.size()) return false;
    isBroken = true;
    if (!Provide(kCentralRecordBytes)) return false;
    const std::string_view fixed = std::string_view(buffer_).substr(at_, kCentralRecordBytes);
    if (NumberAt<std::uint32_t>(fixed, 0) != kCentralRecordSignature) return false;
    const std::size_t name = NumberAt<std::uint16_t>(fixed, 28);
    const std::size_t extra = NumberAt<std::uint16_t>(fixed, 30);
    const std::size_t comment = NumberAt<std::uint16_t>(fixed, 32);
    const std::size_t all = kCentralRecordBytes + name + extra + comment;
    if (!Provide(all)) return false;
    const std::string_view bytes = std::string_view(buffer_).substr(at_, all);
    at_ += all;
    record = {};
    isBroken = !record.Read(bytes, bytes.substr(kCentralRecordBytes + name, extra));
    return !isBroken;
  }

 private:
  /// Has `bytes` of the directory in the buffer; false when there are not so many.
  [[nodiscard]] bool Provide(std::size_t bytes) {
    if (buffer_.size() - at_ >= bytes) return true;
    buffer_.erase(0, at_);
    at_ = 0;
    const std::size_t had = buffer_.size();
    const auto more =
        static_cast<std::size_t>(std::min<std::uint64_t>(left_, std::max(kReadBytes, bytes)));
    buffer_.resize(had + more);
    buffer_.resize(had + file_.ReadAt(offset_, {buffer_.data() + had, more}));
    offset_ += more;
    left_ -= more;
    return buffer_.size() >= bytes;
  }

  const InputFile& file_;
  std::uint64_t offset_;
  std::uint64_t left_;
  std::string buffer_;
  std::size_t at_ = 0;
};

EarlierArchive::EarlierArchive(const std::string& path, std::string_view mark,
                               std::size_t blockBytes) {
  try {
    file_ = std::make_unique<InputFile>(path);
    if (!ReadDirectory(mark, blockBytes)) blocks_.clear();
  } catch (const Error&) {  // It is not there, mostly.
    blocks_.clear();
  }
  std::ranges::sort(blocks_, {}, ContentKeyOf);
  blocks_.shrink_to_fit();
}

bool EarlierArchive::ReadDirectory(std::string_view mark, std::size_t blockBytes) {
  constexpr std::size_t kAllEnds = kZip64EndBytes + kZip64LocatorBytes + kDirectoryEndBytes;
  const std::uint64_t size = file_->Stamp().size;
  std::string end(std::min<std::uint64_t>(kAllEnds + mark.size(), size), '\0');
  if (file_->ReadAt(size - end.size(), end) != end.size()) return false;
  if (end.size() < kDirectoryEndBytes + mark.size() || !end.ends_with(mark)) return false;
  const std::size_t at = end.size() - mark.size() - kDirectoryEndBytes;
  if (NumberAt<std::uint32_t>(end, at) != kDirectoryEndSignature ||
      NumberAt<std::uint16_t>(end, at + 20) != mark.size()) {
    return false;
  }
  std::uint64_t bytes = NumberAt<std::uint32_t>(end, at + 12);
  std::uint64_t offset = NumberAt<std::uint32_t>(end, at + 16);
  std::uint64_t endOffset = size - end.size() + at;
  if (at == kZip64EndBytes + kZip64LocatorBytes &&
      NumberAt<std::uint32_t>(end, 0) == kZip64EndSignature &&
      NumberAt<std::uint32_t>(end, kZip64EndBytes) == kZip64LocatorSignature) {
    bytes = NumberAt<std::uint64_t>(end, 40);
    offset = NumberAt<std::uint64_t>(end, 48);
    endOffset -= at;
  }
  if (offset > endOffset || bytes != endOffset - offset) return false;
  contentBytes_ = offset;

  Directory directory(*file_, offset, bytes);
  Record record;
  std::size_t runBegin = 0;
  bool isBroken = false;
  while (blocks_.size() < kMostBlocks && directory.Next(record, isBroken)) {
    if (record.dataOffset + record.storedBytes > contentBytes_) return false;
    const bool isLarge = record.sourceBytes > blockBytes;
    if (isLarge && runBegin != blocks_.size()) return false;
    if (!(isLarge ? AddParts(record, blockBytes) : AddToRun(record, runBegin))) return false;
    if (isLarge) runBegin = blocks_.size();
  }
  blocks_.resize(runBegin);  // those of a run without its end
  return !isBroken;
}

bool EarlierArchive::AddParts(const Record& record, std::size_t blockBytes) {
  std::uint64_t offset = record.dataOffset;
  std::uint64_t left = record.sourceBytes;
  for (const PackedPart& part : PartsOf(record.note)) {
    if (left == 0 || blocks_.size() == kMostBlocks) return false;
    const auto bytes = static_cast<std::uint32_t>(std::min<std::uint64_t>(left, blockBytes));
    left -= bytes;
    Block block{.sourceBytes = bytes, .crc32 = part.crc32};
    if (part.packedBytes < bytes) {
      block.piece = static_cast<std::uint32_t>(pieces_.size());
      block.packedBytes = part.packedBytes;
      block.form = left == 0 ? PackedForm::Stream : PackedForm::Part;
      pieces_.push_back({offset, part.packedBytes, part.sum});
    }
    blocks_.push_back(block);
    offset += part.packedBytes;
    if (offset > record.dataOffset + record.storedBytes) return false;
  }
  return true;
}

// Places in a run count from the archive's begin until its own is known.
bool EarlierArchive::AddToRun(const Record& record, std::size_t& runBegin) {
  const std::uint64_t begin =
      runBegin == blocks_.size() ? record.headerOffset : pieces_.back().offset;
  if (runBegin == blocks_.size()) pieces_.push_back({.offset = begin});
  const std::uint64_t end = record.dataOffset + record.storedBytes;
  // One behind the other, as they are written: so each lies in the piece, wherever that ends.
  if (record.headerOffset < begin + pieces_.back().bytes || record.dataOffset > end ||
      record.storedBytes > record.sourceBytes || end - begin > kLargestPiece) {
    return false;
  }
  const bool isStored = record.method == static_cast<std::uint16_t>(ZipMethod::Stored);
  if (isStored && record.storedBytes != record.sourceBytes) return false;
  blocks_.push_back({.sourceBytes = static_cast<std::uint32_t>(record.sourceBytes),
                     .crc32 = record.crc32,
                     .piece = static_cast<std::uint32_t>(pieces_.size() - 1),
                     .offset = static_cast<std::uint32_t>(record.dataOffset - begin),
                     .packedBytes = static_cast<std::uint32_t>(record.storedBytes),
                     .form = isStored ? PackedForm::Stored : PackedForm::Stream});
  pieces_.back().bytes = static_cast<std::uint32_t>(end - begin);
  if (IsNoteOfRun(record.note, pieces_.back().sum)) runBegin = blocks_.size();
  return true;
}

std::span<const EarlierArchive::Block> EarlierArchive::Find(std::size_t sourceBytes,
                                                            std::uint32_t crc32) const {
  const std::pair key(static_cast<std::uint32_t>(sourceBytes), crc32);
  const auto begin = std::lower_bound(
      blocks_.begin(), blocks_.end(), key,
      [](const Block& block, const auto& wanted) { return ContentKeyOf(block) < wanted; });
  const auto end = std::upper_bound(
      begin, blocks_.end(), key,
      [](const auto& wanted, const Block& block) { return wanted < ContentKeyOf(block); });
  return {begin, end};
}

bool EarlierArchive::Read(std::uint32_t piece, std::span<char> buffer) const {
  const Piece& wanted = pieces_[piece];
  try {
    const std::span<char> bytes = buffer.first(wanted.bytes);
    return file_->ReadAt(wanted.offset, bytes) == bytes.size() &&
           Crc32({bytes.data(), bytes.size()}) == wanted.sum;
  } catch (const Error&) {  // It is packed anew then.
    return false;
  }
}

}  // namespace tools
