#include "tests/support/ZipReader.h"

#include <zlib.h>

#include <stdexcept>

namespace tests {

static std::uint32_t Number(std::string_view bytes, std::size_t offset, std::size_t size) {
  std::uint32_t value = 0;
  while (size-- > 0) value = (value << 8U) | static_cast<unsigned char>(bytes.at(offset + size));
  return value;
}

static Bytef* ToBytes(std::string_view text) {
  return reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
}

std::string Inflate(std::string_view deflated, std::size_t bytes) {
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

std::vector<ZipEntry> ReadZip(std::string_view archive) {
  const std::string_view end = archive.substr(archive.size() - 22);
  std::vector<ZipEntry> entries(Number(end, 10, 2));
  std::string_view central = archive.substr(Number(end, 16, 4));
  for (ZipEntry& entry : entries) {
    const std::size_t nameSize = Number(central, 28, 2);
    const std::string_view local = archive.substr(Number(central, 42, 4));
    const std::string_view data = local.substr(30 + nameSize, Number(central, 20, 4));
    entry.name = central.substr(46, nameSize);
    entry.utf8 = (Number(central, 8, 2) & 0x800U) != 0;
    entry.stored = Number(central, 10, 2) == 0;
    entry.dosDateTime = Number(central, 12, 4);
    entry.content = entry.stored ? std::string(data) : Inflate(data, Number(central, 24, 4));
    const uLong checksum = crc32_z(0, ToBytes(entry.content), entry.content.size());
    if (local.substr(4, 26) != central.substr(6, 26) || checksum != Number(central, 16, 4)) {
      throw std::runtime_error("damaged headers of " + entry.name);
    }
    central.remove_prefix(46 + nameSize);
  }
  return entries;
}

}  // namespace tests
