// POSIX only: what the system tells about a file, as a FileStamp.
#pragma once

#include <sys/stat.h>

#include <algorithm>
#include <limits>

#include "tools/files/Files.h"

namespace tools {

/// Times that nanoseconds cannot count (from 2262 on) become the last that they can.
[[nodiscard]] inline std::int64_t NanosecondsOf(const timespec& time) {
  constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
  constexpr std::int64_t kMostSeconds =
      std::numeric_limits<std::int64_t>::max() / kNanosecondsPerSecond - 1;
  const std::int64_t seconds = std::clamp<std::int64_t>(time.tv_sec, -kMostSeconds, kMostSeconds);
  return seconds * kNanosecondsPerSecond + time.tv_nsec;
}

[[nodiscard]] inline FileStamp StampFrom(const struct stat& status) {
  return {.exists = true,
          .size = static_cast<std::uint64_t>(status.st_size),
          .modifiedNanoseconds = NanosecondsOf(status.st_mtim),
          .device = status.st_dev,
          .identity = status.st_ino};
}

}  // namespace tools
