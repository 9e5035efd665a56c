#include <filesystem>

#include "tools/ReadStream.h"
#include "tools/WindowsPath.h"

namespace tools {

std::ifstream OpenForReading(std::string_view path) {
  return std::ifstream(std::filesystem::path(LongPath(path)), std::ios::binary);
}

}  // namespace tools
