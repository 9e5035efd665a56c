// Windows only: what the system tells about a file, as a FileStamp.
#pragma once

#include <algorithm>
#include <limits>

#include "tools/WindowsApi.h"
#include "tools/files/Files.h"

namespace tools {

[[nodiscard]] inline FileStamp StampFrom(const BY_HANDLE_FILE_INFORMATION& information) {
  const auto join = [](DWORD high, DWORD low) {
    return (static_cast<std::uint64_t>(high) << 32U) | low;
  };
  // FILETIME counts 100 ns steps since 1601-01-01.
  constexpr std::int64_t kStepsTo1970 = 116'444'736'000'000'000;
  const auto steps = static_cast<std::int64_t>(
      join(information.ftLastWriteTime.dwHighDateTime, information.ftLastWriteTime.dwLowDateTime));
  // Times that nanoseconds cannot count (from 2262 on) become the last that they can.
  constexpr std::int64_t kMostSteps = std::numeric_limits<std::int64_t>::max() / 100;
  const std::int64_t since1970 =
      std::clamp(std::max<std::int64_t>(steps, 0) - kStepsTo1970, -kMostSteps, kMostSteps);
  return {.exists = true,
          .size = join(information.nFileSizeHigh, information.nFileSizeLow),
          .modifiedNanoseconds = since1970 * 100,
          .device = information.dwVolumeSerialNumber,
          .identity = join(information.nFileIndexHigh, information.nFileIndexLow)};
}

}  // namespace tools
