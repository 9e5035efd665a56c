// The options of the last build of each version, so that it can be made again.
#pragma once

#include <map>
#include <string>

#include "model/ModProject.h"
#include "tools/desktop/wizard/WizardDriver.h"
#include "tools/registry/Registry.h"

namespace wizards {

/// They are the author's, not the product's: each build is one value below a key of the current
/// user's registry, named by product file and version. Only the compression is stored nowhere and
/// forgotten with this object.
class LastBuilds {
 public:
  /// The references must outlive this object.
  LastBuilds(tools::Registry& registry, const model::ModProject& project);

  /// The wizard's values of the last build of the version in that slot; empty when there was none.
  [[nodiscard]] tools::WizardDataStore Of(model::VersionSlot version) const;
  /// Raises tools::Error when the registry cannot be written to.
  void Remember(model::VersionSlot version, const tools::WizardDataStore& values);

 private:
  [[nodiscard]] std::string NameOf(model::VersionSlot version) const;

  tools::Registry& registry_;
  const model::ModProject& project_;
  std::map<std::string, std::string> compressions_;  ///< by the name of the build
};

}  // namespace wizards
