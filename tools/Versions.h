// Version texts of the form major.minor.revision.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tools {

struct Version {
  std::int32_t major = 0;
  std::int32_t minor = 0;
  std::int32_t revision = 0;

  auto operator<=>(const Version&) const = default;
};

/// The leading number of each dot-separated part; 0 for a missing part or one without a number, the
/// largest number for one that does not fit. Parts after the third are ignored. Never fails.
[[nodiscard]] Version SplitVersion(std::string_view text);

/// "major.minor.revision".
[[nodiscard]] std::string FormatVersion(const Version& version);

/// 1 when the second version is higher, 0 when both are equal, -1 otherwise.
[[nodiscard]] int CompareVersions(std::string_view first, std::string_view second);

/// This program's own version.
[[nodiscard]] Version ToolVersion();

}  // namespace tools
