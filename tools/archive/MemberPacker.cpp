#include "tools/archive/MemberPacker.h"

#include <utility>

namespace tools {

MemberPacker::MemberPacker(int level, std::size_t blockBytes, const EarlierArchive& earlier)
    : deflater_(level, blockBytes), taker_(earlier, deflater_) {}

ZipMember MemberPacker::PackWhole(const SmallFile& file, std::string& bytes, bool& isTakenOver) {
  std::string_view data = file.content;
  ZipMember member{.name = file.memberName,
                   .method = ZipMethod::Stored,
                   .modified = file.modified,
                   .crc32 = Crc32(data),
                   .sourceBytes = data.size(),
                   .storedBytes = data.size(),
                   .headerOffset = bytes.size(),
                   .isNoted = file.isNoted};
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

PackedBlock MemberPacker::PackBlock(std::string_view content, BlockPlace place) {
  const PackedForm form = place == BlockPlace::Last ? PackedForm::Stream : PackedForm::Part;
  PackedBlock block;
  block.crc32 = Crc32(content);
  block.sourceBytes = content.size();
  const auto taken = taker_.Take(form, content, block.crc32);
  block.data = taken ? *taken : Pack(content, form);
  block.isDeflated = block.data.size() < content.size();
  block.isTakenOver = taken || (!block.isDeflated && taker_.WasStored(content, block.crc32));
  if (block.isDeflated) block.sum = Crc32(block.data);
  return block;
}

// `source` itself where deflating it gains nothing.
std::string_view MemberPacker::Pack(std::string_view source, PackedForm form) {
  if (!deflater_.IsWorthIt(source)) return source;
  const std::string_view deflated =
      form == PackedForm::Stream ? deflater_.Deflate(source) : deflater_.DeflatePart(source);
  return deflated.size() < source.size() ? deflated : source;
}

}  // namespace tools
