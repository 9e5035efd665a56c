#include "tools/TemporaryName.h"

#include <random>

#include "tools/Path.h"

namespace tools {

std::string TemporaryNameBeside(std::string_view target) {
  std::random_device random;
  std::string name = ".packwright-";
  for (int i = 0; i < 16; ++i) name += "0123456789abcdef"[random() % 16];
  name += ".tmp";
  const std::string folder = FolderOf(target);
  return folder.empty() ? name : JoinPath(folder, name);
}

}  // namespace tools
