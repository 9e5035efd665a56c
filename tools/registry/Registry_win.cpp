#include <array>
#include <memory>

#include "tools/Error.h"
#include "tools/WindowsApi.h"
#include "tools/registry/Registry.h"

namespace tools {

namespace {

// The system's limits of names, in UTF-16 units, the end included.
constexpr DWORD kLongestKeyName = 256;
constexpr DWORD kLongestValueName = 16384;

struct KeyCloser {
  void operator()(HKEY key) const { RegCloseKey(key); }
};
using OpenKey = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

/// Null for the roots that hold no keys to look at: one is made of counters, one is gone.
HKEY PredefinedKey(RegistryRoot root) {
  switch (root) {
    case RegistryRoot::ClassesRoot:
      return HKEY_CLASSES_ROOT;
    case RegistryRoot::CurrentConfig:
      return HKEY_CURRENT_CONFIG;
    case RegistryRoot::CurrentUser:
      return HKEY_CURRENT_USER;
    case RegistryRoot::LocalMachine:
      return HKEY_LOCAL_MACHINE;
    case RegistryRoot::Users:
      return HKEY_USERS;
    default:
      return nullptr;
  }
}

OpenKey OpenForReading(RegistryRoot root, std::string_view keyPath) {
  HKEY key = nullptr;
  const HKEY predefined = PredefinedKey(root);
  if (predefined == nullptr || RegOpenKeyExW(predefined, ToWide(TrimKeyPath(keyPath)).c_str(), 0,
                                             KEY_READ | KEY_WOW64_64KEY, &key) != ERROR_SUCCESS) {
    return nullptr;
  }
  return OpenKey(key);
}

/// Cuts the text at its first NUL: the system stores what it is given, with or without one.
std::wstring_view UpToNul(std::wstring_view text) { return text.substr(0, text.find(L'\0')); }

class WindowsRegistry : public Registry {
 public:
  std::string Read(RegistryRoot root, std::string_view keyPath, std::string_view valueName,
                   std::string_view defaultValue) override;
  void Write(RegistryRoot root, std::string_view keyPath, std::string_view valueName,
             std::string_view value) override;
  std::vector<std::string> SubkeyNames(RegistryRoot root, std::string_view keyPath) override;
  std::vector<std::string> ValueNames(RegistryRoot root, std::string_view keyPath) override;
};

std::string WindowsRegistry::Read(RegistryRoot root, std::string_view keyPath,
                                  std::string_view valueName, std::string_view defaultValue) {
  const OpenKey key = OpenForReading(root, keyPath);
  if (!key) return std::string(defaultValue);
  const std::wstring name = ToWide(valueName);
  std::wstring value(256, L'\0');
  for (;;) {
    auto bytes = static_cast<DWORD>(value.size() * sizeof(wchar_t));
    const LSTATUS status = RegGetValueW(key.get(), nullptr, name.c_str(),
                                        RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND,
                                        nullptr, value.data(), &bytes);
    if (status == ERROR_SUCCESS) return FromWide(UpToNul(value));
    if (status != ERROR_MORE_DATA) return std::string(defaultValue);
    value.resize(value.size() * 2);
  }
}

void WindowsRegistry::Write(RegistryRoot root, std::string_view keyPath, std::string_view valueName,
                            std::string_view value) {
  const std::wstring path = ToWide(TrimKeyPath(keyPath));
  LSTATUS status = ERROR_INVALID_HANDLE;
  HKEY key = nullptr;
  if (const HKEY predefined = PredefinedKey(root); predefined != nullptr) {
    status = RegCreateKeyExW(predefined, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                             KEY_SET_VALUE | KEY_WOW64_64KEY, nullptr, &key, nullptr);
  }
  if (status == ERROR_SUCCESS) {
    const OpenKey owner(key);
    const std::wstring text = ToWide(value);
    status = RegSetValueExW(key, ToWide(valueName).c_str(), 0, REG_SZ,
                            reinterpret_cast<const BYTE*>(text.c_str()),
                            static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
  }
  if (status != ERROR_SUCCESS) {
    throw PathError("Der Wert kann nicht in die Registrierung geschrieben werden",
                    std::string(RegistryRootName(root)).append("\\").append(keyPath),
                    std::error_code(status, std::system_category()));
  }
}

std::vector<std::string> WindowsRegistry::SubkeyNames(RegistryRoot root, std::string_view keyPath) {
  std::vector<std::string> names;
  const OpenKey key = OpenForReading(root, keyPath);
  if (!key) return names;
  std::array<wchar_t, kLongestKeyName> name{};
  for (DWORD index = 0;; ++index) {
    DWORD size = kLongestKeyName;
    if (RegEnumKeyExW(key.get(), index, name.data(), &size, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      return names;
    }
    names.push_back(FromWide({name.data(), size}));
  }
}

std::vector<std::string> WindowsRegistry::ValueNames(RegistryRoot root, std::string_view keyPath) {
  std::vector<std::string> names;
  const OpenKey key = OpenForReading(root, keyPath);
  if (!key) return names;
  std::wstring name(kLongestValueName, L'\0');
  for (DWORD index = 0;; ++index) {
    DWORD size = kLongestValueName;
    if (RegEnumValueW(key.get(), index, name.data(), &size, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      return names;
    }
    if (size > 0) names.push_back(FromWide({name.data(), size}));
  }
}

}  // namespace

std::unique_ptr<Registry> OpenSystemRegistry(Disk& /*disk*/) {
  return std::make_unique<WindowsRegistry>();
}

}  // namespace tools
