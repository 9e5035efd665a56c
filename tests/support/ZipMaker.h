// Zip archives as tests want them: also such that no honest program writes.
#pragma once

#include <zlib.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tests {

struct ZipMember {
  std::string name;
  std::string content;
  bool deflated = false;
  std::uint16_t method = 0;  ///< beside the two: another number
  std::uint16_t flags = 0;
  std::optional<std::uint32_t> size = {};      ///< instead of the real one
  std::optional<std::uint32_t> checksum = {};  ///< instead of the real one
};

inline void AppendNumber(std::string& bytes, std::uint32_t value, int size) {
  for (; size > 0; --size, value >>= 8U) bytes += static_cast<char>(value & 0xFFU);
}

/// The bytes in deflate's format.
inline std::string Deflate(const std::string& content) {
  std::string packed(content.size() + content.size() / 8 + 100, '\0');
  z_stream stream{};
  deflateInit2(&stream, 9, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(content.data()));
  stream.avail_in = static_cast<uInt>(content.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  deflate(&stream, Z_FINISH);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

inline std::string MakeZip(const std::vector<ZipMember>& members) {
  std::string archive;
  std::string directory;
  for (const ZipMember& member : members) {
    const std::string data = member.deflated ? Deflate(member.content) : member.content;
    const auto* const bytes = reinterpret_cast<const Bytef*>(member.content.data());
    const auto checksum = static_cast<std::uint32_t>(crc32_z(0, bytes, member.content.size()));
    std::string fields;  // what both headers have
    AppendNumber(fields, 20, 2);
    AppendNumber(fields, member.flags, 2);
    AppendNumber(fields, member.deflated ? 8 : member.method, 2);
    AppendNumber(fields, 0x00210000, 4);
    AppendNumber(fields, member.checksum.value_or(checksum), 4);
    AppendNumber(fields, static_cast<std::uint32_t>(data.size()), 4);
    AppendNumber(fields, member.size.value_or(static_cast<std::uint32_t>(member.content.size())),
                 4);
    AppendNumber(fields, static_cast<std::uint32_t>(member.name.size()), 2);
    AppendNumber(fields, 0, 2);
    directory += "PK\1\2";
    AppendNumber(directory, 20, 2);
    directory += fields + std::string(10, '\0');
    AppendNumber(directory, static_cast<std::uint32_t>(archive.size()), 4);
    directory += member.name;
    archive += "PK\3\4" + fields + member.name + data;
  }
  const std::size_t place = archive.size();
  archive += directory + "PK\5\6" + std::string(4, '\0');
  AppendNumber(archive, static_cast<std::uint32_t>(members.size()), 2);
  AppendNumber(archive, static_cast<std::uint32_t>(members.size()), 2);
  AppendNumber(archive, static_cast<std::uint32_t>(directory.size()), 4);
  AppendNumber(archive, static_cast<std::uint32_t>(place), 4);
  return archive + std::string(2, '\0');
}

}  // namespace tests
