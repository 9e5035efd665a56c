// What a build is asked to do.
#pragma once

#include <string>

namespace engine {

struct BuildOptions {
  std::string folder;           ///< output folder as the user wrote it
  bool packaged = false;        ///< one archive instead of a tree
  bool includeWrapper = false;  ///< the setup wrapper goes beside the script
  bool includeRuntime = false;  ///< and so does the runtime's installer
  bool isConfined = false;      ///< nothing outside the product's folder is read or written
};

}  // namespace engine
