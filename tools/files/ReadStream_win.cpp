#include <filesystem>

#include "tools/files/ReadStream.h"
#include "tools/files/WindowsPath.h"

namespace tools {

std::ifstream OpenForReading(std::string_view path) {
  return std::ifstream(std::filesystem::path(LongPath(path)), std::ios::binary);
}

}  // namespace tools
