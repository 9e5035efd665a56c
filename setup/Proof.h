// The proof that a setup installs exactly what a version of a product asks for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "setup/Plan.h"
#include "setup/Setup.h"
#include "tools/Progress.h"

namespace setup {

/// An entry of the product, with the files that it stands for.
struct ExpectedEntry {
  std::int32_t component = 0;  ///< its slot
  std::string componentTitle;
  std::int32_t entry = 0;  ///< number in the component
  std::int32_t targetFolder = 0;
  std::string targetSubFolder;
  std::string targetName;  ///< empty: the source's
  bool overwrites = false;
  bool registersItself = false;
  bool pathReminder = false;
  bool vital = false;
  std::vector<std::string> sources;  ///< full paths, in order
};

struct ExpectedSetup {
  std::string title;
  std::string author;
  std::string confirmation;
  std::string cancellation;  ///< when the user declines
  FailureText failure;       ///< of a vital file
  std::optional<Registration> registration;
  int latestYear = 0;  ///< no setup can be of a later year
  std::vector<ExpectedEntry> entries;
};

struct ProofResult {
  std::vector<Finding> findings;    ///< in order of the script
  std::size_t furtherFindings = 0;  ///< how many more there are
  std::uint64_t files = 0;          ///< compared
  std::uint64_t bytes = 0;
};

/// Compares every file with its source on `threads` threads, reading each byte once, and the script
/// with the entries. `onProgress` is called on the caller's thread and may raise an error to stop.
/// The setup's own findings are among the result's. Raises tools::Error when the setup's folder
/// cannot be searched.
[[nodiscard]] ProofResult Prove(const Setup& setup, const ExpectedSetup& expected, unsigned threads,
                                const std::function<void(const tools::Progress&)>& onProgress);

}  // namespace setup
