#include "tools/archive/MemberPacker.h"

#include <algorithm>

#include "tools/files/InputFile.h"

namespace tools {

// Not initialised: memory that no source asks for is never touched.
MemberPacker::MemberPacker(int level, std::size_t blockBytes, const EarlierArchive& earlier)
    : blockBytes_(blockBytes),
      input_(std::make_unique_for_overwrite<char[]>(blockBytes)),
      deflater_(level, blockBytes),
      taker_(earlier, deflater_) {}

ZipMember MemberPacker::PackWhole(const std::string& memberName, const FileContent& content,
                                  bool isNoted, std::string& bytes, bool& isTakenOver) {
  std::string_view data = content.bytes;
  ZipMember member{.name = memberName,
                   .method = ZipMethod::Stored,
                   .modifiedNanoseconds = content.modifiedNanoseconds,
                   .crc32 = Crc32(data),
                   .sourceBytes = data.size(),
                   .storedBytes = data.size(),
                   .headerOffset = bytes.size(),
                   .isNoted = isNoted};
  const auto taken = taker_.Take(PackedForm::Stream, data, member.crc32);
  isTakenOver = taken.has_value();
  const std::string_view packed = taken ? *taken : Pack(data, PackedForm::Stream);
  if (packed.size() < data.size()) {
    member.method = ZipMethod::Deflated;
    member.storedBytes = packed.size();
    data = packed;
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

  const PackedForm form = rest == size ? PackedForm::Stream : PackedForm::Part;
  PackedBlock block;
  block.crc32 = Crc32(content);
  block.sourceBytes = size;
  const auto taken = taker_.Take(form, content, block.crc32);
  block.data = taken ? *taken : Pack(content, form);
  block.isDeflated = block.data.size() < size;
  if (block.isDeflated) block.sum = Crc32(block.data);
  block.isTakenOver = taken || (!block.isDeflated && taker_.WasStored(content, block.crc32));
  return block;
}

// `source` itself where deflating it gains nothing.
std::string_view MemberPacker::Pack(std::string_view source, PackedForm form) {
  if (!deflater_.IsWorthIt(source)) return source;
  const std::string_view deflated =
      form == PackedForm::Stream ? deflater_.Deflate(source) : deflater_.DeflatePart(source);
  return deflated.size() < source.size() ? deflated : source;
}

Error SourceChanged(const ArchiveSource& source) {
  return PathError("Die Datei wurde während des Packens geändert", source.path, {});
}

}  // namespace tools
