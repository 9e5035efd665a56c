// Zip archives as tests want them: also such that no honest program writes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/archive/BlockDeflate.h"
#include "tools/archive/ZipFormat.h"

namespace tests {

struct ZipMember {
  std::string name;
  std::string content;
  bool deflated = false;
  std::uint16_t method = 0;                    ///< beside the two: another number
  std::uint16_t flags = 0;                     ///< instead of the right ones, unless 0
  std::optional<std::uint32_t> size = {};      ///< instead of the real one
  std::optional<std::uint32_t> checksum = {};  ///< instead of the real one
};

/// The bytes in deflate's format.
inline std::string Deflate(const std::string& content) {
  return std::string(tools::BlockDeflater(9, content.size() + 1).Deflate(content));
}

inline std::string MakeZip(const std::vector<ZipMember>& members) {
  std::string archive;
  std::string directory;
  for (const ZipMember& member : members) {
    const std::string data = member.deflated ? Deflate(member.content) : member.content;
    tools::ZipMember record{.name = member.name};
    record.method = static_cast<tools::ZipMethod>(member.deflated ? 8 : member.method);
    record.crc32 = member.checksum.value_or(tools::Crc32(member.content));
    record.sourceBytes = member.size ? *member.size : member.content.size();
    record.storedBytes = data.size();
    record.headerOffset = archive.size();
    std::string local = tools::LocalHeader(record);
    std::string central;
    tools::AppendCentralRecord(central, record);
    if (member.flags != 0) {
      const char bytes[] = {static_cast<char>(member.flags), static_cast<char>(member.flags >> 8U)};
      local.replace(6, 2, bytes, 2);
      central.replace(8, 2, bytes, 2);
    }
    archive += local + data;
    directory += central;
  }
  return archive + directory +
         tools::DirectoryEnd(members.size(), directory.size(), archive.size());
}

}  // namespace tests
