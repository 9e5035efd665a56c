#include <string>

#include "tools/ReadStream.h"

namespace tools {

std::ifstream OpenForReading(std::string_view path) {
  return std::ifstream(std::string(path), std::ios::binary);
}

}  // namespace tools
