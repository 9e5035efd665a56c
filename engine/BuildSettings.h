// What a build is asked to do: the setup wizard's data store, and its values converted.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

namespace engine {

/// Named text values. The names that the build knows are "installertype", "config", "folder",
/// "language", "makezip", "includeexe" and "includetessel"; an absent one counts as empty.
using BuildSettings = std::map<std::string, std::string, std::less<>>;

/// The values that change the output; "installertype", "config" and "language" do not.
struct BuildOptions {
  std::string folder;           ///< output folder as the user wrote it
  bool packaged = false;        ///< "makezip" is exactly 1: one archive instead of a tree
  bool includeWrapper = false;  ///< "includeexe" is not 0
  bool includeRuntime = false;  ///< "includetessel" is not 0
};

/// Converts the values. Raises tools::Error for a number that does not fit its type.
[[nodiscard]] BuildOptions ReadBuildOptions(const BuildSettings& settings);

}  // namespace engine
