// The names under which a build stored its files.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace engine {

/// Stored names by entry ID and source path: a folder scan stores many files for one ID, and one
/// file can be stored for several entries.
class StoredNameMap {
 public:
  /// Records the name of a file. Returns false, and keeps the first name, when one is recorded for
  /// this ID and path already.
  bool Record(std::string_view id, std::string_view sourcePath, std::string_view storedName);

  /// The recorded name; empty when there is none. Valid until the next Record.
  [[nodiscard]] std::string_view Find(std::string_view id, std::string_view sourcePath) const;

 private:
  std::unordered_map<std::string, std::string> names_;
};

}  // namespace engine
