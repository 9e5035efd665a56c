// Reads back the archives of the tests, in memory, without the code that wrote them.
#pragma once

#include <cstdint>
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

/// The members in the order of the central directory. Raises a std::exception when data, checksum
/// or headers of one are damaged. Zip64 is not understood.
[[nodiscard]] std::vector<ZipEntry> ReadZip(std::string_view archive);

/// Raw deflate data that decodes to that many bytes, decoded by zlib. Raises std::runtime_error
/// when it is damaged, ends early or goes on.
[[nodiscard]] std::string Inflate(std::string_view deflated, std::size_t bytes);

}  // namespace tests
