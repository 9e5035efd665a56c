// POSIX only: what the system tells about a file, as a FileStamp.
#pragma once

#include <sys/stat.h>

#include "tools/files/Files.h"

namespace tools {

[[nodiscard]] inline FileStamp StampFrom(const struct stat& status) {
  constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
  return {
      .exists = true,
      .size = static_cast<std::uint64_t>(status.st_size),
      .modifiedNanoseconds = status.st_mtim.tv_sec * kNanosecondsPerSecond + status.st_mtim.tv_nsec,
      .device = status.st_dev,
      .identity = status.st_ino};
}

}  // namespace tools
