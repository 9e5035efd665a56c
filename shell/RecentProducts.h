// The product files that were opened last, kept in the author's preferences.
#pragma once

#include <string>
#include <vector>

#include "tools/registry/Registry.h"

namespace shell {

class RecentProducts {
 public:
  static constexpr std::size_t kMost = 10;

  /// `registry` must outlive this object.
  explicit RecentProducts(tools::Registry& registry) : registry_(registry) {}

  /// Full paths, the one opened last first.
  [[nodiscard]] std::vector<std::string> Paths() const;
  /// Puts a product first. A path that preferences cannot hold is not remembered. Raises
  /// tools::Error.
  void Add(const std::string& path);
  /// Raises tools::Error.
  void Remove(const std::string& path);

 private:
  void Store(const std::vector<std::string>& paths);

  tools::Registry& registry_;
};

/// The paths at which there is surely no file; one that cannot be looked at is not among them. May
/// take long on slow disks.
[[nodiscard]] std::vector<std::string> MissingProducts(const std::vector<std::string>& paths);

}  // namespace shell
