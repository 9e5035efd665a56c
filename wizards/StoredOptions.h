// What is stored for the build of a version.
#pragma once

#include <cstdint>
#include <string>

#include "model/ModProject.h"

namespace wizards {

/// Every operation reads anew, and raises tools::Error when a file cannot be read.
class StoredOptions {
 public:
  /// For the version in slot `versionIndex`. `project` must outlive this object.
  StoredOptions(const model::ModProject& project, std::int32_t versionIndex)
      : project_(project), versionIndex_(versionIndex) {}

  [[nodiscard]] std::int32_t ActiveConfiguration() const;
  [[nodiscard]] std::string InstallerType() const;

  /// What a configuration (1 debug, 2 release) proposes for the build.
  struct Proposal {
    std::string folder;    ///< the output folder as it is stored, or the default one
    std::string language;  ///< LCID, or the stored text that names no language
  };
  [[nodiscard]] Proposal Of(std::int32_t configuration) const;

 private:
  const model::ModProject& project_;
  std::int32_t versionIndex_;
};

}  // namespace wizards
