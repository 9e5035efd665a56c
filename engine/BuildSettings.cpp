#include "engine/BuildSettings.h"

#include <string_view>

#include "tools/Numbers.h"

namespace engine {

BuildOptions ReadBuildOptions(const BuildSettings& settings) {
  const auto text = [&settings](std::string_view name) {
    const auto found = settings.find(name);
    return found == settings.end() ? std::string{} : found->second;
  };
  BuildOptions options;
  options.folder = text("folder");
  options.packaged = tools::ToInt16(text("makezip")) == 1;
  options.includeWrapper = tools::ToInt16(text("includeexe")) != 0;
  options.includeRuntime = tools::ToInt16(text("includetessel")) != 0;
  return options;
}

}  // namespace engine
