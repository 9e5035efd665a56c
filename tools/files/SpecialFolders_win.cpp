#include <array>
#include <memory>
#include <string_view>
#include <vector>

// clang-format off
#include "tools/WindowsApi.h"
#include <sddl.h>
#include <shlobj.h>
// clang-format on

#include "tools/Error.h"
#include "tools/WindowsText.h"
#include "tools/files/Path.h"
#include "tools/files/PrivateFolder.h"
#include "tools/files/SpecialFolders.h"
#include "tools/files/WindowsPath.h"

namespace tools {

namespace {

constexpr const char* kCannotMake = "Der temporäre Ordner kann nicht angelegt werden";

struct LocalMemory {
  void operator()(void* memory) const { LocalFree(memory); }
};

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

/// The security identifier of the user that this process runs for, as text; empty on failure.
std::wstring UserSid() {
  HANDLE token = nullptr;
  if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) == 0) return {};
  std::vector<std::byte> user(sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE);
  DWORD size = 0;
  const BOOL known =
      GetTokenInformation(token, TokenUser, user.data(), static_cast<DWORD>(user.size()), &size);
  CloseHandle(token);
  wchar_t* text = nullptr;
  if (known == 0 || ConvertSidToStringSidW(
                        reinterpret_cast<const TOKEN_USER*>(user.data())->User.Sid, &text) == 0) {
    return {};
  }
  const std::unique_ptr<wchar_t, LocalMemory> owner(text);
  return text;
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

void MakePrivateFolder(const std::string& path) {
  const std::wstring sid = UserSid();
  if (sid.empty()) throw PathError(kCannotMake, FolderOf(path), LastSystemError());

  // Protected from what the parent folder grants, full access for the user alone, inherited by all
  // that lies inside.
  const std::wstring rights = L"D:P(A;OICI;FA;;;" + sid + L")";
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  if (ConvertStringSecurityDescriptorToSecurityDescriptorW(rights.c_str(), SDDL_REVISION_1,
                                                           &descriptor, nullptr) == 0) {
    throw PathError(kCannotMake, FolderOf(path), LastSystemError());
  }
  const std::unique_ptr<void, LocalMemory> owner(descriptor);
  SECURITY_ATTRIBUTES attributes{sizeof(SECURITY_ATTRIBUTES), descriptor, FALSE};
  // Fails when the name exists, so nobody can have prepared the folder.
  if (CreateDirectoryW(LongPath(path).c_str(), &attributes) == 0) {
    throw PathError(kCannotMake, FolderOf(path), LastSystemError());
  }
}

}  // namespace tools
