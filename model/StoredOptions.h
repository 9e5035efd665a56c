// What is stored for the build of a version: its configurations and its entry in the runtime's
// catalogue.
#pragma once

#include <cstdint>
#include <string>

#include "model/ModProject.h"

namespace model {

/// Every operation reads anew, and raises tools::Error when a file cannot be read.
class StoredOptions {
 public:
  /// For the version in slot `version`. `project` must outlive this object.
  StoredOptions(const ModProject& project, VersionSlot version)
      : project_(project), version_(version) {}

  /// The configuration chosen last: 1 debug, 2 release, or whatever number the file holds. Raises
  /// tools::Error naming file and key when it does not fit.
  [[nodiscard]] std::int32_t ActiveConfiguration() const;
  [[nodiscard]] std::string InstallerType() const;

  /// What a configuration proposes for the build.
  struct Proposal {
    std::string folder;    ///< the output folder as it is stored, or the default one
    std::string language;  ///< as it is stored: mostly an LCID
  };
  [[nodiscard]] Proposal Of(std::int32_t configuration) const;

  /// The program's entry in the runtime's catalogue; without a key there is none.
  struct CatalogueEntry {
    std::string key;
    std::string title;
    std::string type;
  };
  /// `standardTitle` stands for a title that is not stored: a build takes the product's, a check
  /// none at all.
  [[nodiscard]] CatalogueEntry Catalogue(const std::string& standardTitle) const;

 private:
  const ModProject& project_;
  VersionSlot version_;
};

}  // namespace model
