#include "tools/files/InputFile.h"

#include <algorithm>

namespace tools {

std::optional<std::string> ReadToEnd(const InputFile& file, std::size_t expectedBytes,
                                     std::size_t maximumBytes) {
  if (expectedBytes > maximumBytes) return std::nullopt;
  std::string bytes;
  std::size_t read = 0;
  std::size_t wanted = expectedBytes + 1;  // one more, to see the end
  while (true) {
    bytes.resize(wanted);
    read += file.ReadAt(read, {bytes.data() + read, wanted - read});
    if (read > maximumBytes) return std::nullopt;
    if (read < wanted) break;
    wanted = std::max<std::size_t>(2 * wanted, 4096);
    if (wanted > maximumBytes) wanted = maximumBytes + 1;
  }
  bytes.resize(read);
  return bytes;
}

}  // namespace tools
