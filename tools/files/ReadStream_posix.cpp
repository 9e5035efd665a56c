#include <string>

#include "tools/files/ReadStream.h"

namespace tools {

std::ifstream OpenForReading(std::string_view path) {
  return std::ifstream(std::string(path), std::ios::binary);
}

}  // namespace tools
