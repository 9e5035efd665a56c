// The outcome of one build, for showing it afterwards.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/Build.h"

namespace engine {

struct BuildResult {
  /// How many messages are kept; the log holds all of them.
  static constexpr std::size_t kMostMessages = 10'000;

  model::VersionSlot version = 0;  ///< slot
  BuildSummary summary;
  std::string failure;  ///< why the build could not run or end at all; empty for any other end
  std::vector<BuildMessage> messages;
  std::uint64_t furtherMessages = 0;  ///< those that are not kept
  std::chrono::milliseconds duration{};
};

}  // namespace engine
