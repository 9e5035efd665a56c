#include "tools/Versions.h"

#include <algorithm>
#include <limits>

#include "tools/Numbers.h"

namespace tools {

namespace {

/// Takes the first dot-separated part off `rest` and gives its leading number.
std::int32_t TakePart(std::string_view& rest) {
  const std::size_t dot = std::min(rest.find('.'), rest.size());
  const double number = LeadingNumber(rest.substr(0, dot));
  rest.remove_prefix(std::min(dot + 1, rest.size()));
  return static_cast<std::int32_t>(std::clamp<double>(
      number, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

}  // namespace

Version SplitVersion(std::string_view text) {
  Version version;
  version.major = TakePart(text);
  version.minor = TakePart(text);
  version.revision = TakePart(text);
  return version;
}

std::string FormatVersion(const Version& version) {
  return std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
         std::to_string(version.revision);
}

int CompareVersions(std::string_view first, std::string_view second) {
  const auto order = SplitVersion(second) <=> SplitVersion(first);
  if (order == 0) return 0;
  return order > 0 ? 1 : -1;
}

// The build system sets PACKWRIGHT_VERSION for this file alone, so that a new version number
// compiles one file.
Version ToolVersion() { return SplitVersion(PACKWRIGHT_VERSION); }

}  // namespace tools
