// What a new setup does other than an old one.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "setup/Setup.h"
#include "tools/Progress.h"

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

/// The difference in one line (German).
[[nodiscard]] std::string DifferenceText(const Difference& difference);

struct SetupComparison {
  std::vector<Difference> differences;
  std::uint64_t oldFiles = 0;
  std::uint64_t newFiles = 0;
  std::uint64_t oldBytes = 0;  ///< of all files, unpacked
  std::uint64_t newBytes = 0;
};

/// What a file is made of, small enough to keep one for each file.
struct Content {
  std::uint64_t size = 0;      ///< bytes
  std::uint32_t checksum = 0;  ///< CRC-32
  bool missing = false;
  auto operator<=>(const Content&) const = default;
};

/// A setup's files in order of their targets. Does not hold the archive, so that two setups of many
/// files take little more memory than one.
struct SetupContents {
  struct Item {
    std::string key;         ///< of the target
    std::uint32_t turn = 0;  ///< which of the files that meet at the target
    std::uint32_t file = 0;  ///< position in the plan
    Content content;
  };
  Plan plan;
  std::vector<Item> items;
};

/// Takes the plan out of the setup and closes its archive. Contents are those of the archive's
/// directory, or of the file itself where it is not packaged. Raises tools::Error when a file
/// cannot be read, and what `onProgress` raises.
[[nodiscard]] SetupContents TakeContents(
    Setup& setup, const std::function<void(const tools::Progress&)>& onProgress);

/// Compares two setups by targets, where case does not count.
[[nodiscard]] SetupComparison CompareSetups(const SetupContents& before,
                                            const SetupContents& after);

}  // namespace setup
