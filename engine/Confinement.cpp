#include "engine/Confinement.h"

#include "engine/ComponentFiles.h"
#include "tools/Error.h"
#include "tools/files/Path.h"

namespace engine {

void RequireConfined(const model::ModProject& project, std::int32_t version,
                     const std::string& outputFolder, const std::set<std::string>& sourceFolders) {
  const std::string limit = tools::CanonicalPath(project.ProductFolder());
  const auto require = [&limit](const std::string& path) {
    if (tools::IsSameOrBelow(tools::CanonicalPath(path), limit)) return;
    throw tools::Error("Das liegt außerhalb des Ordners des Produkts: " + path);
  };
  if (!outputFolder.empty()) require(outputFolder);
  require(project.ProductPath());
  require(project.VersionFilePath(version));
  for (const std::int32_t slot : ListComponentFiles(project, version).slots) {
    require(project.ComponentFilePath(version, slot));
  }
  for (const std::string& folder : sourceFolders) require(folder);
}

}  // namespace engine
