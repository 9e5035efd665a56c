// Stores files under their own names, in folders named after their destinations.
#pragma once

#include <string>
#include <vector>

#include "engine/BuildObserver.h"
#include "engine/StoreFiles.h"
#include "engine/TreePlaces.h"

namespace engine {

class TreeStore : public FileStore {
 public:
  /// The folder must exist; errors name `usersFolder` instead. `progress` must outlive the store.
  /// `ownNames`: names in the folder that are kept for the build itself.
  TreeStore(std::string folder, std::string usersFolder, const std::vector<std::string>& ownNames,
            BuildProgress& progress);

  /// Fails for a target subfolder whose ".." parts lead out of the folder, a name of the build's
  /// own and a folder and a file of one name. `sourcePath` must outlive the store.
  [[nodiscard]] StoredFile Store(const model::ICFile& entry, std::string_view sourcePath) override;
  [[nodiscard]] std::string_view PlaceName() const override { return "new location"; }
  [[nodiscard]] std::optional<tools::Error> Finish() override { return {}; }
  [[nodiscard]] const tools::ArchiveTotals& Totals() const override { return totals_; }

 private:
  /// The full path of a place in the tree, whose folder is made. Raises tools::Error.
  [[nodiscard]] std::string PathOf(const TreePlace& place);

  std::string folder_;
  std::string usersFolder_;
  TreePlaces places_;
  BuildProgress& progress_;
  std::uint64_t filesDone_ = 0;
  tools::ArchiveTotals totals_;
  std::string lastFolder_;  ///< the folder that was made last
};

}  // namespace engine
