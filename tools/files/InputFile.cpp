#include "tools/files/InputFile.h"

#include <algorithm>
#include <utility>

#include "tools/Error.h"
#include "tools/files/Files.h"

namespace tools {

std::size_t InputFile::ReadAt(std::uint64_t offset, std::span<char> buffer) const {
  std::size_t filled = 0;
  while (filled < buffer.size()) {
    const std::size_t count = ReadSome(offset + filled, buffer.subspan(filled));
    if (count == 0) break;
    filled += count;
  }
  return filled;
}

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

std::string ReadWholeFile(std::string_view path) {
  const InputFile file{std::string(path)};
  const FileStamp stamp = file.Stamp();
  return *ReadToEnd(file, static_cast<std::size_t>(stamp.size), std::string::npos);
}

std::optional<FileContent> ReadFileUpTo(const std::string& path, std::size_t maximumBytes) {
  const InputFile file(path);
  constexpr int kTries = 2;
  for (int i = 0; i < kTries; ++i) {
    const std::optional<FileStamp> stamp = file.SteadyStamp();
    if (!stamp) continue;
    if (stamp->size > maximumBytes) return std::nullopt;
    std::optional<std::string> bytes =
        ReadToEnd(file, static_cast<std::size_t>(stamp->size), maximumBytes);
    if (!bytes) return std::nullopt;
    if (file.Stamp() == *stamp) return FileContent{std::move(*bytes), stamp->modified};
  }
  throw PathError("Die Datei kann nicht gelesen werden", path,
                  std::make_error_code(kChangesMeanwhile));
}

}  // namespace tools
