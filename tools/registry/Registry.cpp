#include "tools/registry/Registry.h"

#include <algorithm>

namespace tools {

std::optional<RegistryRoot> FindRegistryRoot(std::string_view name) {
  for (const auto& [root, rootName] : kRegistryRoots) {
    if (name == rootName) return root;
  }
  return std::nullopt;
}

std::string_view RegistryRootName(RegistryRoot root) {
  const auto* const found = std::find_if(kRegistryRoots.begin(), kRegistryRoots.end(),
                                         [root](const auto& entry) { return entry.first == root; });
  return found->second;
}

std::string_view TrimKeyPath(std::string_view keyPath) {
  keyPath.remove_prefix(std::min(keyPath.find_first_not_of('\\'), keyPath.size()));
  return keyPath.substr(0, keyPath.find_last_not_of('\\') + 1);
}

}  // namespace tools
