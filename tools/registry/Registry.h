// The registry of the machine.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/files/Disk.h"

namespace tools {

/// The predefined keys that every path of the registry begins with.
enum class RegistryRoot {
  ClassesRoot,
  CurrentConfig,
  CurrentUser,
  DynData,
  LocalMachine,
  PerformanceData,
  Users
};

/// The roots' names, in the order in which they are shown.
inline constexpr std::array<std::pair<RegistryRoot, std::string_view>, 7> kRegistryRoots{{
    {RegistryRoot::ClassesRoot, "HKEY_CLASSES_ROOT"},
    {RegistryRoot::CurrentConfig, "HKEY_CURRENT_CONFIG"},
    {RegistryRoot::CurrentUser, "HKEY_CURRENT_USER"},
    {RegistryRoot::DynData, "HKEY_DYN_DATA"},
    {RegistryRoot::LocalMachine, "HKEY_LOCAL_MACHINE"},
    {RegistryRoot::PerformanceData, "HKEY_PERFORMANCE_DATA"},
    {RegistryRoot::Users, "HKEY_USERS"},
}};

/// The root of exactly this name (letter case counts), or nothing.
[[nodiscard]] std::optional<RegistryRoot> FindRegistryRoot(std::string_view name);
[[nodiscard]] std::string_view RegistryRootName(RegistryRoot root);

/// String values and the names of keys and values. A key path has "\" between its keys ("\" around
/// it are passed over); an empty one is the root itself. Names are found ignoring case. An empty
/// value name is the key's default value.
class Registry {
 public:
  virtual ~Registry() = default;
  Registry() = default;
  Registry(const Registry&) = delete;
  Registry& operator=(const Registry&) = delete;

  /// The string value, or `defaultValue` when it is absent, no string, or unreadable.
  [[nodiscard]] virtual std::string Read(RegistryRoot root, std::string_view keyPath,
                                         std::string_view valueName,
                                         std::string_view defaultValue) = 0;
  /// Sets a string value, creating its key as needed. Raises Error.
  virtual void Write(RegistryRoot root, std::string_view keyPath, std::string_view valueName,
                     std::string_view value) = 0;

  /// The names of the keys directly below a key; none when it does not exist or is unreadable.
  [[nodiscard]] virtual std::vector<std::string> SubkeyNames(RegistryRoot root,
                                                             std::string_view keyPath) = 0;
  /// The names of a key's values, without its default value.
  [[nodiscard]] virtual std::vector<std::string> ValueNames(RegistryRoot root,
                                                            std::string_view keyPath) = 0;
};

/// The machine's own registry: on Windows the system's (its 64-bit view). Elsewhere two things
/// stand in its place: Read and Write keep their values in "packwright/registry.conf" in the user's
/// configuration folder, and names are those of the Wine prefix in the home folder, where there is
/// one. `disk` must outlive the registry.
[[nodiscard]] std::unique_ptr<Registry> OpenSystemRegistry(Disk& disk);

/// `keyPath` without "\" around it; a view into it.
[[nodiscard]] std::string_view TrimKeyPath(std::string_view keyPath);

}  // namespace tools
