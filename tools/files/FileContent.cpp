#include "tools/files/FileContent.h"

#include <utility>

#include "tools/files/InputFile.h"

namespace tools {

std::optional<FileContent> ReadFileUpTo(const std::string& path, std::size_t maximumBytes) {
  const InputFile file(path);
  const FileStamp stamp = file.Stamp();
  if (stamp.size > maximumBytes) return std::nullopt;
  std::optional<std::string> bytes =
      ReadToEnd(file, static_cast<std::size_t>(stamp.size), maximumBytes);
  if (!bytes) return std::nullopt;
  return FileContent{std::move(*bytes), stamp.modifiedNanoseconds};
}

}  // namespace tools
