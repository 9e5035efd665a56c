// Reads back the archives of the tests, in memory, without the code that wrote them.
#pragma once

#include <zlib.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tests {

struct ZipEntry {
  std::string name;
  bool utf8 = false;    ///< the name is flagged as UTF-8
  bool stored = false;  ///< else deflated
  std::uint32_t dosDateTime = 0;
  std::string content;
};

inline std::uint32_t Number(std::string_view bytes, std::size_t offset, std::size_t size) {
  std::uint32_t value = 0;
  while (size-- > 0) value = (value << 8U) | static_cast<unsigned char>(bytes.at(offset + size));
  return value;
}

inline Bytef* ToBytes(std::string_view text) {
  return reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
}

/// Raw deflate data that decodes to that many bytes, decoded by zlib. Raises std::runtime_error
/// when it is damaged, ends early or goes on.
[[nodiscard]] inline std::string Inflate(std::string_view deflated, std::size_t bytes) {
  std::string content(bytes, '\0');
  z_stream stream{};
  stream.next_in = ToBytes(deflated);
  stream.avail_in = static_cast<uInt>(deflated.size());
  stream.next_out = ToBytes(content);
  stream.avail_out = static_cast<uInt>(bytes);
  const bool ready = inflateInit2(&stream, -MAX_WBITS) == Z_OK;
  const bool ended = ready && inflate(&stream, Z_FINISH) == Z_STREAM_END;
  inflateEnd(&stream);
  if (!ended || stream.avail_in + stream.avail_out > 0) throw std::runtime_error("damaged data");
  return content;
}

/// The members in the order of the central directory. Raises a std::exception when data, checksum
/// or headers of one are damaged. Zip64 is not understood.
[[nodiscard]] inline std::vector<ZipEntry> ReadZip(std::string_view archive) {
  const std::string_view end = archive.substr(archive.rfind("PK\5\6"));
  std::vector<ZipEntry> entries(Number(end, 10, 2));
  std::string_view central = archive.substr(Number(end, 16, 4));
  for (ZipEntry& entry : entries) {
    const std::size_t nameSize = Number(central, 28, 2);
    const std::string_view local = archive.substr(Number(central, 42, 4));
    const std::string_view data =
        local.substr(30 + nameSize + Number(local, 28, 2), Number(central, 20, 4));
    entry.name = central.substr(46, nameSize);
    entry.utf8 = (Number(central, 8, 2) & 0x800U) != 0;
    entry.stored = Number(central, 10, 2) == 0;
    entry.dosDateTime = Number(central, 12, 4);
    entry.content = entry.stored ? std::string(data) : Inflate(data, Number(central, 24, 4));
    const uLong checksum = crc32_z(0, ToBytes(entry.content), entry.content.size());
    if (local.substr(4, 24) != central.substr(6, 24) || checksum != Number(central, 16, 4)) {
      throw std::runtime_error("damaged headers of " + entry.name);
    }
    central.remove_prefix(46 + nameSize + Number(central, 30, 2));
  }
  return entries;
}

}  // namespace tests
