// The files of a version, each with the statement of the script that installs it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "setup/Plan.h"
#include "setup/Proof.h"

namespace setup {

struct ExpectedFile {
  static constexpr std::uint32_t kNotPlanned = 0xFFFFFFFF;

  std::uint32_t entry = 0;              ///< position in ExpectedSetup::entries
  std::uint32_t source = 0;             ///< position in its sources
  std::uint32_t planned = kNotPlanned;  ///< position in Plan::files
};

/// What the script has to say of the entry's files: the target of one of them, and the rule.
[[nodiscard]] std::string ExpectedTarget(const ExpectedEntry& entry, const std::string& source);
[[nodiscard]] CopyRule ExpectedRule(const ExpectedEntry& entry, const std::string& source);

/// Every file of the version, in order, with the first statement for its target that no file before
/// it has.
[[nodiscard]] std::vector<ExpectedFile> MatchFiles(const ExpectedSetup& expected, const Plan& plan);

}  // namespace setup
