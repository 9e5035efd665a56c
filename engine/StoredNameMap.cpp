#include "engine/StoredNameMap.h"

namespace engine {

namespace {

// A settings value holds no line break, so none can blur where the ID ends.
std::string KeyOf(std::string_view id, std::string_view sourcePath) {
  std::string key;
  key.reserve(id.size() + 1 + sourcePath.size());
  key.append(id).append("\n").append(sourcePath);
  return key;
}

}  // namespace

bool StoredNameMap::Record(std::string_view id, std::string_view sourcePath,
                           std::string_view storedName) {
  return names_.try_emplace(KeyOf(id, sourcePath), storedName).second;
}

std::string_view StoredNameMap::Find(std::string_view id, std::string_view sourcePath) const {
  const auto found = names_.find(KeyOf(id, sourcePath));
  return found == names_.end() ? std::string_view{} : std::string_view(found->second);
}

}  // namespace engine
