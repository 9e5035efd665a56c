#include "tools/FileContent.h"

#include <algorithm>

#include "tools/InputFile.h"

namespace tools {

std::optional<FileContent> ReadFileUpTo(const std::string& path, std::size_t maximumBytes) {
  const InputFile file(path);
  const FileStamp stamp = file.Stamp();
  if (stamp.size > maximumBytes) return std::nullopt;
  FileContent content{{}, stamp.modifiedNanoseconds};
  std::size_t read = 0;
  std::size_t wanted = static_cast<std::size_t>(stamp.size) + 1;  // one more, to see the end
  while (true) {
    content.bytes.resize(wanted);
    read += file.ReadAt(read, {content.bytes.data() + read, wanted - read});
    if (read > maximumBytes) return std::nullopt;
    if (read < wanted) break;
    wanted = std::min(2 * wanted, maximumBytes + 1);  // it has grown meanwhile
  }
  content.bytes.resize(read);
  return content;
}

}  // namespace tools
