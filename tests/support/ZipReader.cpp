#include "tests/support/ZipReader.h"

#include <zlib.h>

#include <stdexcept>

namespace tests {

namespace {

void Require(bool condition, const char* what) {
  if (!condition) throw std::runtime_error(what);
}

// A record of little-endian numbers at a place of the archive.
class Record {
 public:
  Record(std::string_view archive, std::size_t offset, std::size_t size, std::uint32_t signature) {
    Require(offset <= archive.size() && size <= archive.size() - offset, "record cut off");
    bytes_ = archive.substr(offset, size);
    Require(Number(0, 4) == signature, "wrong signature");
  }

  [[nodiscard]] std::uint32_t Number(std::size_t offset, std::size_t size) const {
    std::uint32_t value = 0;
    for (std::size_t i = size; i-- > 0;) {
      value = (value << 8U) | static_cast<unsigned char>(bytes_.at(offset + i));
    }
    return value;
  }

 private:
  std::string_view bytes_;
};

std::string Content(std::string_view data, const Record& central) {
  const bool stored = central.Number(10, 2) == 0;
  Require(stored || central.Number(10, 2) == 8, "unknown method");
  std::string content = stored ? std::string(data) : Inflate(data);
  Require(content.size() == central.Number(24, 4), "wrong size");
  const uLong crc =
      crc32(0, reinterpret_cast<const Bytef*>(content.data()), static_cast<uInt>(content.size()));
  Require(crc == central.Number(16, 4), "wrong checksum");
  return content;
}

}  // namespace

std::string Inflate(std::string_view deflated) {
  z_stream stream{};
  if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) throw std::bad_alloc();
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(deflated.data()));
  stream.avail_in = static_cast<uInt>(deflated.size());
  std::string content;
  std::string buffer(1U << 16U, '\0');
  int result = Z_OK;
  while (result == Z_OK) {
    stream.next_out = reinterpret_cast<Bytef*>(buffer.data());
    stream.avail_out = static_cast<uInt>(buffer.size());
    result = inflate(&stream, Z_NO_FLUSH);
    content.append(buffer, 0, buffer.size() - stream.avail_out);
  }
  inflateEnd(&stream);
  Require(result == Z_STREAM_END && stream.avail_in == 0, "damaged deflate data");
  return content;
}

std::vector<ZipEntry> ReadZip(std::string_view archive) {
  Require(archive.size() >= 22, "no archive");
  const std::size_t endOffset = archive.size() - 22;
  const Record end(archive, endOffset, 22, 0x06054b50);
  std::vector<ZipEntry> entries(end.Number(10, 2));
  std::size_t next = end.Number(16, 4);
  std::size_t nextData = 0;  // members lie one behind the other
  for (ZipEntry& entry : entries) {
    const Record central(archive, next, 46, 0x02014b50);
    const std::size_t nameSize = central.Number(28, 2);
    entry.name = archive.substr(next + 46, nameSize);
    entry.utf8 = (central.Number(8, 2) & 0x800U) != 0;
    entry.stored = central.Number(10, 2) == 0;
    entry.dosDateTime = central.Number(12, 4);
    next += 46 + nameSize;

    Require(central.Number(42, 4) == nextData, "bytes between members");
    const Record local(archive, nextData, 30, 0x04034b50);
    for (std::size_t i = 4; i < 28; i += 2) {
      Require(local.Number(i, 2) == central.Number(i + 2, 2), "headers differ");
    }
    Require(local.Number(28, 2) == 0, "unexpected extra field");
    Require(archive.substr(nextData + 30, nameSize) == entry.name, "names differ");
    const std::size_t storedBytes = central.Number(20, 4);
    entry.content = Content(archive.substr(nextData + 30 + nameSize, storedBytes), central);
    nextData += 30 + nameSize + storedBytes;
  }
  Require(nextData == end.Number(16, 4), "bytes before the directory");
  Require(next == endOffset && next - nextData == end.Number(12, 4), "wrong directory size");
  return entries;
}

}  // namespace tests
