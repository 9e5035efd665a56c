#include <vector>

#include "tools/WindowsApi.h"
#include "tools/WindowsText.h"
#include "tools/files/Mounts.h"
#include "tools/files/Path.h"

namespace tools {

bool IsMountRoot(const std::string& folder) {
  const std::string path = EnsureTrailingSeparator(folder);
  std::vector<wchar_t> root(32768);
  if (GetVolumePathNameW(ToWide(path).c_str(), root.data(), static_cast<DWORD>(root.size())) == 0) {
    return false;
  }
  return IsSameOrBelow(EnsureTrailingSeparator(FromWide(root.data())), path);
}

// Canonical paths have mounted folders resolved.
MountTable::MountTable() = default;

std::vector<std::string> MountTable::OtherPathsOf(const std::string&) const { return {}; }

}  // namespace tools
