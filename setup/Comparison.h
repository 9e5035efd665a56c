// What a new setup does other than an old one.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "setup/Setup.h"

namespace setup {

/// One difference between two setups.
struct Difference {
  enum class Kind {
    Head,     ///< question, catalogue entry, folder: `what` says which
    Added,    ///< `target` is new
    Removed,  ///< `target` is gone
    Renamed,  ///< the content of `oldTarget` now goes to `target`
    Changed,  ///< the file at `target` is another one: `what` says in which respect
  };
  Kind kind = Kind::Changed;
  std::string target;
  std::string oldTarget;
  std::string what;  ///< "Inhalt", "Regel" and so on (German)
  std::string oldValue;
  std::string newValue;
};

struct SetupComparison {
  std::vector<Difference> differences;
  std::uint64_t oldFiles = 0;
  std::uint64_t newFiles = 0;
  std::uint64_t oldBytes = 0;  ///< of all files, unpacked
  std::uint64_t newBytes = 0;
};

/// Compares two setups by targets, where case does not count. Contents are compared by size and
/// CRC-32: those of the archive's directory, or of the file itself where it is not packaged. Raises
/// tools::Error when a file cannot be read.
[[nodiscard]] SetupComparison CompareSetups(const Setup& before, const Setup& after);

}  // namespace setup
