#include "tests/support/ZipReader.h"

#include <zlib.h>

#include <stdexcept>

namespace tests {

namespace {

void Require(bool condition, const char* what) {
  if (!condition) throw std::runtime_error(what);
}

// A record of little-endian numbers at a place of the archive; what lies beyond the end raises
// std::out_of_range.
struct Record {
  Record(std::string_view archive, std::size_t offset, std::uint32_t signature)
      : bytes(archive.substr(offset)) {
    Require(Number(0, 4) == signature, "wrong signature");
  }

  [[nodiscard]] std::uint32_t Number(std::size_t offset, std::size_t size) const {
    std::uint32_t value = 0;
    while (size-- > 0) value = (value << 8U) | static_cast<unsigned char>(bytes.at(offset + size));
    return value;
  }

  std::string_view bytes;
};

Bytef* ToBytes(std::string_view text) {
  return reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
}

}  // namespace

std::string Inflate(std::string_view deflated, std::size_t bytes) {
  std::string content(bytes, '\0');
  z_stream stream{};
  stream.next_in = ToBytes(deflated);
  stream.avail_in = static_cast<uInt>(deflated.size());
  stream.next_out = ToBytes(content);
  stream.avail_out = static_cast<uInt>(bytes);
  Require(inflateInit2(&stream, -MAX_WBITS) == Z_OK, "no memory");
  const int result = inflate(&stream, Z_FINISH);
  inflateEnd(&stream);
  Require(result == Z_STREAM_END && stream.avail_in + stream.avail_out == 0,
          "damaged deflate data");
  return content;
}

std::vector<ZipEntry> ReadZip(std::string_view archive) {
  const Record end(archive, archive.size() - 22, 0x06054b50);
  std::vector<ZipEntry> entries(end.Number(10, 2));
  std::size_t next = end.Number(16, 4);
  std::size_t nextData = 0;  // members lie one behind the other
  for (ZipEntry& entry : entries) {
    const Record central(archive, next, 0x02014b50);
    const std::size_t nameSize = central.Number(28, 2);
    const std::size_t storedBytes = central.Number(20, 4);
    const std::size_t bytes = central.Number(24, 4);
    entry.name = central.bytes.substr(46, nameSize);
    entry.utf8 = (central.Number(8, 2) & 0x800U) != 0;
    entry.stored = central.Number(10, 2) == 0;
    entry.dosDateTime = central.Number(12, 4);
    next += 46 + nameSize;

    Require(central.Number(42, 4) == nextData, "bytes between members");
    const Record local(archive, nextData, 0x04034b50);
    Require(local.bytes.substr(4, 24) == central.bytes.substr(6, 24), "headers differ");
    Require(local.bytes.substr(30, nameSize) == entry.name, "names differ");
    const std::string_view data = local.bytes.substr(30 + nameSize, storedBytes);
    entry.content = entry.stored ? std::string(data) : Inflate(data, bytes);
    const uLong checksum = crc32_z(0, ToBytes(entry.content), entry.content.size());
    Require(checksum == central.Number(16, 4), "wrong checksum");
    Require(entry.content.size() == bytes, "wrong size");
    nextData += 30 + nameSize + storedBytes;
  }
  Require(nextData == end.Number(16, 4), "bytes before the directory");
  return entries;
}

}  // namespace tests
