// Compares files of a setup with their sources, on all processors.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "setup/ExpectedFiles.h"
#include "setup/Setup.h"
#include "tools/Progress.h"

namespace setup {

/// A file whose bytes are not those of its source.
struct ContentFault {
  std::uint32_t file = 0;  ///< position in the list of expected files
  std::string text;        ///< why (German)
};

/// Compares each planned file of the list with its source; each byte is read once. The faults come
/// in the order of the list. `progress` counts on from its state. Raises what `onProgress` raises.
[[nodiscard]] std::vector<ContentFault> CompareContents(
    const Setup& setup, const ExpectedSetup& expected, const std::vector<ExpectedFile>& files,
    unsigned threads, tools::Progress& progress,
    const std::function<void(const tools::Progress&)>& onProgress);

}  // namespace setup
