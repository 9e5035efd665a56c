#include "tools/archive/MemberPacker.h"

#include <algorithm>

#include "tools/files/InputFile.h"

namespace tools {

// Not initialised: memory that no source asks for is never touched.
MemberPacker::MemberPacker(int level, std::size_t blockBytes)
    : blockBytes_(blockBytes),
      input_(std::make_unique_for_overwrite<char[]>(blockBytes)),
      deflater_(level, blockBytes) {}

ZipMember MemberPacker::PackWhole(const std::string& memberName, const FileContent& content,
                                  std::string& bytes) {
  std::string_view data = content.bytes;
  ZipMember member{.name = memberName,
                   .method = ZipMethod::Stored,
                   .modifiedNanoseconds = content.modifiedNanoseconds,
                   .crc32 = Crc32(data),
                   .sourceBytes = data.size(),
                   .storedBytes = data.size(),
                   .headerOffset = bytes.size()};
  const std::string_view deflated = deflater_.Deflate(data);
  if (deflated.size() < data.size()) {
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
  const std::string_view content(input_.get(), file.ReadAt(offset, {input_.get(), size}));
  // Asked for after reading, so that a change before or during it shows.
  if (content.size() != size || file.Stamp() != source.stamp) throw SourceChanged(source);

  const bool last = rest == size;
  PackedBlock block;
  block.data = last ? deflater_.Deflate(content) : deflater_.DeflatePart(content);
  block.crc32 = Crc32(content);
  block.sourceBytes = size;
  return block;
}

Error SourceChanged(const ArchiveSource& source) {
  return PathError("Die Datei wurde während des Packens geändert", source.path, {});
}

}  // namespace tools
