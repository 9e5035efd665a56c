#include <vector>

#include "tools/WindowsApi.h"
#include "tools/files/LinksAndMounts.h"
#include "tools/files/Path.h"
#include "tools/files/SystemFiles_win.h"

namespace tools {

std::string LinkTarget(std::string_view path) {
  const DWORD attributes = GetFileAttributesW(LongPath(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
    return std::string(path);
  }
  return CanonicalPath(path);
}

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
