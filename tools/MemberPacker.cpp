#include "tools/MemberPacker.h"

#include <algorithm>

namespace tools {

MemberPacker::MemberPacker(int level, std::size_t blockBytes)
    : blockBytes_(blockBytes),
      input_(std::make_unique_for_overwrite<char[]>(blockBytes + 1)),
      deflater_(level, blockBytes) {}

ZipMember MemberPacker::PackWhole(const ArchiveSource& source, std::string& bytes) {
  const InputFile file(source.path);
  const FileStamp stamp = file.Stamp();
  const std::string_view content =
      Read(file, 0, std::min<std::uint64_t>(stamp.size, blockBytes_) + 1);
  if (content.size() > stamp.size || content.size() > blockBytes_) throw SourceChanged(source);

  std::string_view data = content;
  ZipMember member{.name = source.memberName,
                   .method = ZipMethod::Stored,
                   .modifiedNanoseconds = stamp.modifiedNanoseconds,
                   .crc32 = Crc32(content),
                   .sourceBytes = content.size(),
                   .storedBytes = content.size(),
                   .headerOffset = bytes.size()};
  const std::string_view deflated = deflater_.Deflate(content);
  if (deflated.size() < content.size()) {
    member.method = ZipMethod::Deflated;
    member.storedBytes = deflated.size();
    data = deflated;
  }
  bytes.append(LocalHeader(member)).append(data);
  return member;
}

PackedBlock MemberPacker::PackBlock(const ArchiveSource& source, std::uint64_t index) {
  const InputFile file(source.path);
  const std::uint64_t offset = index * blockBytes_;
  const std::uint64_t rest = source.stamp.size - offset;
  const auto size = static_cast<std::size_t>(std::min<std::uint64_t>(rest, blockBytes_));
  const std::string_view content = Read(file, offset, size);
  // Asked for after reading, so that a change before or during it shows.
  if (content.size() != size || file.Stamp() != source.stamp) throw SourceChanged(source);

  const bool last = rest == size;
  PackedBlock block;
  block.data = last ? deflater_.Deflate(content) : deflater_.DeflatePart(content);
  block.crc32 = Crc32(content);
  block.sourceBytes = size;
  return block;
}

std::string_view MemberPacker::Read(const InputFile& file, std::uint64_t offset,
                                    std::size_t wanted) {
  return {input_.get(), file.ReadAt(offset, {input_.get(), wanted})};
}

Error SourceChanged(const ArchiveSource& source) {
  return PathError("Die Datei wurde während des Packens geändert", source.path, {});
}

}  // namespace tools
