// A file of Wine's registry: every key that it lists is opened.
#include "tests/fuzz/Fuzz.h"
#include "tools/registry/WineRegistry.h"

void tests::Fuzz(std::string_view input) {
  constexpr std::size_t kMostKeys = 200;
  const tools::WineRegistryFile file{std::string(input)};
  std::vector<std::string> paths{""};
  for (std::size_t i = 0; i < paths.size() && i < kMostKeys; ++i) {
    (void)file.ValueNames(paths[i]);
    const std::string prefix = paths[i].empty() ? "" : paths[i] + "\\";
    for (const std::string& name : file.SubkeyNames(paths[i])) {
      Require(!name.empty(), "keys have a name");
      paths.push_back(prefix + name);
    }
  }
}
