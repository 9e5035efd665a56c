// The names of what a build itself puts at the top of the output folder.
#pragma once

#include <string>
#include <vector>

#include "engine/BuildOptions.h"

namespace engine {

inline constexpr const char* kLogName = "build.log";
inline constexpr const char* kWrapperName = "Setup.exe";
inline constexpr const char* kWrapperSource = "Wrapper.exe";  ///< in the program's folder
inline constexpr const char* kRuntimeName = "InstallTessel.msi";
inline constexpr const char* kScriptEnding = ".install";
inline constexpr const char* kArchiveEnding = ".zip";

// What the log and the script begin with: it tells a setup from other files.
inline constexpr const char* kLogHead = "Quillon Packwright Build Log";
inline constexpr const char* kScriptTitle = "' QUILLON PACKWRIGHT INSTALLATION SCRIPT FOR TESSEL";

/// Those of a folder tree made with these options for a product of this title.
[[nodiscard]] inline std::vector<std::string> OwnNamesInTree(const BuildOptions& options,
                                                             const std::string& title) {
  std::vector<std::string> names{kLogName, title + kScriptEnding};
  if (options.includeWrapper) names.emplace_back(kWrapperName);
  if (options.includeRuntime) names.emplace_back(kRuntimeName);
  return names;
}

}  // namespace engine
