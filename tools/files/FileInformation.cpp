#include "tools/files/FileInformation.h"

#include <fstream>

#include "tools/Clock.h"
#include "tools/files/Files.h"
#include "tools/files/PeVersion.h"
#include "tools/files/ReadStream.h"

namespace tools {

namespace {

std::string VersionOf(std::string_view path) {
  std::ifstream file = OpenForReading(path);
  return PeVersionText([&file](std::uint64_t offset, std::size_t size) {
    std::string bytes(size, '\0');
    file.clear();
    file.seekg(static_cast<std::streamoff>(offset));
    file.read(bytes.data(), static_cast<std::streamsize>(size));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
  });
}

}  // namespace

FileInformation InformationOf(std::string_view path) {
  FileInformation information;
  // Shown, not decided on: what the system cannot tell of shows as a file that is not there.
  std::error_code ignored;
  information.exists = KindOf(path, ignored) == PathKind::File;
  if (!information.exists) return information;
  information.version = VersionOf(path);
  information.dateTime = LocalDateTimeText(StampOf(path).modifiedNanoseconds);
  return information;
}

}  // namespace tools
