#include "tools/files/FileInformation.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "tools/Clock.h"
#include "tools/Error.h"
#include "tools/files/Files.h"
#include "tools/files/InputFile.h"

namespace tools {

namespace {

// Headers, by their offsets in the structures of the PE format.
constexpr std::size_t kDosHeaderSize = 64;
constexpr std::size_t kPeOffsetAt = 60;
constexpr std::size_t kPeHeaderSize = 24;  // signature and COFF header
constexpr std::size_t kSectionCountAt = 6;
constexpr std::size_t kOptionalHeaderSizeAt = 20;
constexpr std::uint32_t kPe32 = 0x10B;
constexpr std::uint32_t kPe32Plus = 0x20B;
constexpr std::size_t kDirectoryCountAt = 92;  // PE32; 16 bytes further in PE32+, as what follows
constexpr std::size_t kResourceDirectoryAt = 112;
constexpr std::size_t kPe32PlusExtra = 16;
constexpr std::uint32_t kResourceDirectory = 2;
constexpr std::size_t kSectionSize = 40;

// Resources.
constexpr std::size_t kDirectorySize = 16;
constexpr std::size_t kDirectoryEntrySize = 8;
constexpr std::size_t kDataEntrySize = 16;
constexpr std::uint32_t kSubdirectoryFlag = 0x80000000;
constexpr std::uint32_t kVersionType = 16;
constexpr std::size_t kFixedInfoAt = 40;  // in VS_VERSIONINFO, behind its header and its key
constexpr std::size_t kFixedInfoSize = 52;
constexpr std::uint32_t kFixedInfoSignature = 0xFEEF04BD;

/// A little-endian number inside a block that was read whole.
std::uint32_t Number(std::string_view block, std::size_t offset, std::size_t size) {
  std::uint32_t value = 0;
  for (std::size_t i = size; i-- > 0;) {
    value = value << 8 | static_cast<unsigned char>(block[offset + i]);
  }
  return value;
}

std::uint32_t Word(std::string_view block, std::size_t offset) { return Number(block, offset, 2); }
std::uint32_t Long(std::string_view block, std::size_t offset) { return Number(block, offset, 4); }

struct Section {
  std::uint64_t address;     ///< in memory, relative to the image
  std::uint64_t size;        ///< in the file
  std::uint64_t fileOffset;  ///< of its first byte
};

class PeImage {
 public:
  explicit PeImage(const ReadBytesAt& read) : read_(read) {}

  std::string VersionText();

 private:
  bool ReadHeaders();
  bool ReadBlock(std::uint64_t offset, std::size_t size, std::string& block) const;
  bool ReadAddress(std::uint64_t address, std::size_t size, std::string& block) const;
  bool FindResourceDirectory(const std::string& optionalHeader);
  bool FindEntry(std::uint32_t directory, std::optional<std::uint32_t> id,
                 std::uint32_t& found) const;

  const ReadBytesAt& read_;
  std::vector<Section> sections_;
  std::uint64_t resources_ = 0;  ///< address of the root directory
};

bool PeImage::ReadBlock(std::uint64_t offset, std::size_t size, std::string& block) const {
  block = read_(offset, size);
  return block.size() == size;
}

bool PeImage::ReadAddress(std::uint64_t address, std::size_t size, std::string& block) const {
  for (const Section& section : sections_) {
    if (address < section.address || address - section.address >= section.size) continue;
    const std::uint64_t inside = address - section.address;
    return size <= section.size - inside && ReadBlock(section.fileOffset + inside, size, block);
  }
  return false;
}

bool PeImage::ReadHeaders() {
  std::string block;
  if (!ReadBlock(0, kDosHeaderSize, block) || !block.starts_with("MZ")) return false;
  const std::uint64_t begin = Long(block, kPeOffsetAt);
  if (!ReadBlock(begin, kPeHeaderSize, block)) return false;
  if (!block.starts_with(std::string_view("PE\0\0", 4))) return false;
  const std::size_t sectionCount = Word(block, kSectionCountAt);
  const std::size_t optionalSize = Word(block, kOptionalHeaderSizeAt);

  std::string optionalHeader;
  if (!ReadBlock(begin + kPeHeaderSize, optionalSize, optionalHeader)) return false;
  if (!FindResourceDirectory(optionalHeader)) return false;
  const std::uint64_t table = begin + kPeHeaderSize + optionalSize;
  if (!ReadBlock(table, sectionCount * kSectionSize, block)) return false;
  for (std::size_t at = 0; at < block.size(); at += kSectionSize) {
    sections_.push_back({Long(block, at + 12), Long(block, at + 16), Long(block, at + 20)});
  }
  return true;
}

bool PeImage::FindResourceDirectory(const std::string& optionalHeader) {
  if (optionalHeader.size() < 2) return false;
  const std::uint32_t magic = Word(optionalHeader, 0);
  if (magic != kPe32 && magic != kPe32Plus) return false;
  const std::size_t extra = magic == kPe32Plus ? kPe32PlusExtra : 0;
  if (optionalHeader.size() < kResourceDirectoryAt + extra + 8) return false;
  if (Long(optionalHeader, kDirectoryCountAt + extra) <= kResourceDirectory) return false;
  resources_ = Long(optionalHeader, kResourceDirectoryAt + extra);
  return resources_ != 0;
}

/// Looks for the entry `id` (without one takes the first) of the directory at an offset from the
/// root. `found` is its offset field.
bool PeImage::FindEntry(std::uint32_t directory, std::optional<std::uint32_t> id,
                        std::uint32_t& found) const {
  std::string block;
  if (!ReadAddress(resources_ + directory, kDirectorySize, block)) return false;
  const std::size_t count = std::size_t{Word(block, 12)} + Word(block, 14);
  const std::uint64_t entries = resources_ + directory + kDirectorySize;
  if (!ReadAddress(entries, count * kDirectoryEntrySize, block)) return false;
  for (std::size_t at = 0; at < block.size(); at += kDirectoryEntrySize) {
    if (id && Long(block, at) != *id) continue;
    found = Long(block, at + 4);
    return true;
  }
  return false;
}

std::string PeImage::VersionText() {
  if (!ReadHeaders()) return {};
  // Three levels: type, name, language. The fixed part is the same in every language.
  std::uint32_t offset = 0;
  std::optional<std::uint32_t> id = kVersionType;
  for (int level = 0; level < 3; ++level, id.reset()) {
    if (!FindEntry(offset & ~kSubdirectoryFlag, id, offset)) return {};
    if (((offset & kSubdirectoryFlag) != 0) != (level < 2)) return {};
  }
  std::string block;
  if (!ReadAddress(resources_ + offset, kDataEntrySize, block)) return {};
  const std::uint64_t address = Long(block, 0);
  if (Long(block, 4) < kFixedInfoAt + kFixedInfoSize) return {};
  if (!ReadAddress(address, kFixedInfoAt + kFixedInfoSize, block)) return {};
  if (Word(block, 2) < kFixedInfoSize || Long(block, kFixedInfoAt) != kFixedInfoSignature) {
    return {};
  }
  const auto part = [&block](std::size_t at) {
    return std::to_string(Word(block, kFixedInfoAt + at));
  };
  return part(10) + "." + part(8) + "." + part(14) + "." + part(12);
}

}  // namespace

std::string PeVersionText(const ReadBytesAt& read) { return PeImage(read).VersionText(); }

namespace {

std::string VersionOf(std::string_view path) {
  try {
    const InputFile file{std::string(path)};
    return PeVersionText([&file](std::uint64_t offset, std::size_t size) {
      std::string bytes(size, '\0');
      bytes.resize(file.ReadAt(offset, bytes));
      return bytes;
    });
  } catch (const Error&) {
    return {};  // shown, not decided on: what cannot be read has no version
  }
}

}  // namespace

FileInformation InformationOf(std::string_view path) {
  FileInformation information;
  // Shown, not decided on: what the system cannot tell of shows as a file that is not there.
  std::error_code ignored;
  information.exists = KindOf(path, ignored) == PathKind::File;
  if (!information.exists) return information;
  information.version = VersionOf(path);
  information.dateTime = LocalDateTimeText(StampOf(path).modified);
  return information;
}

}  // namespace tools
