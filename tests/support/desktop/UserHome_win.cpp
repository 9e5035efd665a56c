#include <memory>
#include <stdexcept>

#include "tests/support/desktop/UserHome.h"
#include "tools/Guid.h"
#include "tools/WindowsApi.h"

namespace tests {

namespace {

void Check(LSTATUS status) {
  if (status != ERROR_SUCCESS) throw std::runtime_error("the registry cannot be redirected");
}

// Keeps the real registry as it is: this process sees empty keys in place of the machine's and the
// user's, which are removed in the end.
class RegistryOfOurOwn {
 public:
  RegistryOfOurOwn() {
    Redirect(HKEY_LOCAL_MACHINE, "\\Machine");
    Redirect(HKEY_CURRENT_USER, "\\User");
  }
  ~RegistryOfOurOwn() {
    for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
      RegOverridePredefKey(root, nullptr);
    }
    RegDeleteTreeW(HKEY_CURRENT_USER, tools::ToWide(key_).c_str());
  }
  RegistryOfOurOwn(const RegistryOfOurOwn&) = delete;
  RegistryOfOurOwn& operator=(const RegistryOfOurOwn&) = delete;

 private:
  void Redirect(HKEY root, const char* name) {
    HKEY key = nullptr;
    Check(RegCreateKeyExW(HKEY_CURRENT_USER, tools::ToWide(key_ + name).c_str(), 0, nullptr, 0,
                          KEY_ALL_ACCESS, nullptr, &key, nullptr));
    Check(RegOverridePredefKey(root, key));
    RegCloseKey(key);
  }

  const std::string key_ = "Software\\PackwrightTest-" + tools::NewGuidText();
};

std::unique_ptr<RegistryOfOurOwn>& Registry() {
  static std::unique_ptr<RegistryOfOurOwn> registry;
  return registry;
}

}  // namespace

void UseHome(const TemporaryFolder& folder) {
  std::unique_ptr<RegistryOfOurOwn>& registry = Registry();
  registry.reset();
  registry = std::make_unique<RegistryOfOurOwn>();
  _wputenv_s(L"APPDATA", tools::ToWide(folder.Path()).c_str());
}

void MakeMachineKey(const std::string& path, const std::vector<std::string>& valueNames) {
  HKEY key = nullptr;
  Check(RegCreateKeyExW(HKEY_LOCAL_MACHINE, tools::ToWide(path).c_str(), 0, nullptr, 0,
                        KEY_ALL_ACCESS, nullptr, &key, nullptr));
  for (const std::string& name : valueNames) {
    Check(RegSetValueExW(key, tools::ToWide(name).c_str(), 0, REG_SZ,
                         reinterpret_cast<const BYTE*>(L""), sizeof(wchar_t)));
  }
  RegCloseKey(key);
}

}  // namespace tests
