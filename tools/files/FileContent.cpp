#include "tools/files/FileContent.h"

#include <utility>

#include "tools/Error.h"
#include "tools/files/InputFile.h"

namespace tools {

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
    if (file.Stamp() == *stamp) return FileContent{std::move(*bytes), stamp->modifiedNanoseconds};
  }
  throw PathError("Die Datei kann nicht gelesen werden", path,
                  std::make_error_code(kChangesMeanwhile));
}

}  // namespace tools
