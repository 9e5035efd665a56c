#include <array>
#include <memory>
#include <string_view>
#include <vector>

// clang-format off
#include "tools/WindowsApi.h"
#include <shlobj.h>
// clang-format on

#include "tools/Error.h"
#include "tools/files/Path.h"
#include "tools/files/SpecialFolders.h"
#include "tools/files/SystemFiles_win.h"

namespace tools {

namespace {

std::string WithoutTrailingSeparator(std::string path) {
  while (path.size() > RootLength(path) && IsPathSeparator(path.back())) path.pop_back();
  return path;
}

std::string TemporaryFolder() {
  std::array<wchar_t, MAX_PATH + 2> buffer{};
  const DWORD size = GetTempPathW(static_cast<DWORD>(buffer.size()), buffer.data());
  if (size == 0 || size >= buffer.size()) return {};
  return WithoutTrailingSeparator(FromWide({buffer.data(), size}));
}

}  // namespace

std::string SpecialFolder(std::int32_t number) {
  if (number == kTemporaryFolder) return TemporaryFolder();
  // Only the numbers themselves: the flags that CSIDL also holds would create folders.
  if (number < 0 || number > 0xFF) return {};
  std::array<wchar_t, MAX_PATH> buffer{};
  if (SHGetFolderPathW(nullptr, number, nullptr, SHGFP_TYPE_CURRENT, buffer.data()) != S_OK) {
    return {};
  }
  return WithoutTrailingSeparator(FromWide(buffer.data()));
}

// The system keeps a list of profiles, each with its folder.
std::vector<std::string> HomeFolders() {
  std::vector<std::string> homes{SpecialFolder(kProfileFolder)};
  HKEY list = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE,
                    LR"(SOFTWARE\Microsoft\Windows NT\CurrentVersion\ProfileList)", 0, KEY_READ,
                    &list) != ERROR_SUCCESS) {
    return homes;
  }
  std::array<wchar_t, 256> name{};
  for (DWORD index = 0;; ++index) {
    auto size = static_cast<DWORD>(name.size());
    if (RegEnumKeyExW(list, index, name.data(), &size, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      break;
    }
    std::array<wchar_t, 1024> folder{};
    DWORD bytes = sizeof(folder);
    // An expandable text comes expanded.
    if (RegGetValueW(list, name.data(), L"ProfileImagePath", RRF_RT_REG_SZ, nullptr, folder.data(),
                     &bytes) == ERROR_SUCCESS) {
      homes.push_back(WithoutTrailingSeparator(FromWide(folder.data())));
    }
  }
  RegCloseKey(list);
  return homes;
}

}  // namespace tools
