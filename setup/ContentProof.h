// The files of a version: each with the statement of the script that installs it, and its content
// compared with its source, on all processors.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "setup/Plan.h"
#include "setup/Proof.h"
#include "setup/Setup.h"
#include "tools/Progress.h"

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

/// Every file of the version, in order, with the first statement for its target that no earlier
/// file has taken.
[[nodiscard]] std::vector<ExpectedFile> MatchFiles(const ExpectedSetup& expected, const Plan& plan);

/// A file whose bytes are not those of its source.
struct ContentFault {
  std::uint32_t file = 0;  ///< position in the list of expected files
  std::string text;        ///< why (German)
};

/// Compares each planned file of the list with its source; each byte is read once. `threads`
/// threads share what is passed here, and only read it; `progress` and `onProgress` belong to the
/// caller's thread. The faults come in the order of the list. `progress` counts on from its state.
/// Raises what `onProgress` raises.
[[nodiscard]] std::vector<ContentFault> CompareContents(
    const Setup& setup, const ExpectedSetup& expected, const std::vector<ExpectedFile>& files,
    unsigned threads, tools::Progress& progress,
    const std::function<void(const tools::Progress&)>& onProgress);

}  // namespace setup
