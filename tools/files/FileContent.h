// A small file as it was at one moment.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace tools {

struct FileContent {
  std::string bytes;
  std::int64_t modifiedNanoseconds = 0;  ///< since 1970-01-01 UTC
};

/// Reads a regular file to its end; gives nothing when it has more than `maximumBytes`. A file that
/// another program changes meanwhile is read once more. Raises Error naming the path, with the
/// system's cause or kChangesMeanwhile.
[[nodiscard]] std::optional<FileContent> ReadFileUpTo(const std::string& path,
                                                      std::size_t maximumBytes);

}  // namespace tools
