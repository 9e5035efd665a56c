// Stores files under their own names, in folders named after their destinations.
#pragma once

#include <string>

#include "build/BuildProgress.h"
#include "build/FileStore.h"

namespace build {

/// The name under which a tree stores an entry's file: destination folder's macro name, target
/// subfolder and the source's file name, joined by "\".
[[nodiscard]] std::string TreeStoredName(const model::ICFile& entry, std::string_view sourcePath);

/// The parts of a path with "\" between them, "." and ".." worked out. Raises tools::Error when
/// they lead above the path's beginning.
[[nodiscard]] std::vector<std::string> PlainParts(const std::string& scriptPath);

class TreeStore : public FileStore {
 public:
  /// The folder must exist; `progress` must outlive the store.
  TreeStore(std::string outputFolder, BuildProgress& progress);

  /// A target subfolder whose ".." parts lead out of the output folder fails.
  [[nodiscard]] StoredFile Store(const model::ICFile& entry,
                                 const std::string& sourcePath) override;
  [[nodiscard]] std::string_view PlaceName() const override { return "new location"; }
  [[nodiscard]] std::optional<tools::Error> Finish() override { return {}; }
  [[nodiscard]] const StoreTotals& Totals() const override { return totals_; }

 private:
  [[nodiscard]] std::string MakeTargetFolder(const std::string& scriptFolder);

  std::string outputFolder_;
  BuildProgress& progress_;
  std::uint64_t filesDone_ = 0;
  StoreTotals totals_;
  std::string lastFolder_;  ///< the folder that was made last, and below it
  std::string lastScriptFolder_;
};

}  // namespace build
