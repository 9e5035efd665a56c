#include "build/OutputFolder.h"

#include <algorithm>

#include "tools/Files.h"
#include "tools/Path.h"
#include "tools/SpecialFolders.h"
#include "tools/Text.h"

namespace build {

namespace {

// "/", "C:\" and "\\server\share" have no folder above them that could be listed.
bool IsRoot(const std::string& path) {
  const std::filesystem::path asPath = tools::ToPath(path);
  if (asPath.relative_path().empty()) return true;
  return path.starts_with("\\\\") && std::count(path.begin(), path.end(), '\\') <= 3;
}

bool Holds(const std::string& output, const std::string& place) {
  return !place.empty() && tools::IsSameOrBelow(tools::CanonicalPath(place), output);
}

bool HoldsProduct(const std::string& output, const model::ModProject& project) {
  if (Holds(output, project.ProductPath())) return true;
  const auto slots = project.VersionSlots();
  return std::any_of(slots.begin(), slots.end(), [&](std::int32_t slot) {
    return model::IsSafeVersionText(project.VersionString(slot)) &&
           Holds(output, tools::FolderOf(project.VersionFilePath(slot)));
  });
}

bool HoldsSources(const std::string& output, const SourceLocation& location) {
  const std::string folder = tools::CanonicalPath(location.folder);
  if (tools::IsSameOrBelow(folder, output)) return true;
  return !location.pattern.empty() && tools::IsSameOrBelow(output, folder) &&
         !tools::FindFiles(output, location.pattern, true).empty();
}

}  // namespace

std::string NormalizeOutputFolder(std::string_view text, const model::ModProject& project,
                                  const std::set<SourceLocation>& locations) {
  const std::string_view trimmed = tools::TrimBlanks(text);
  if (trimmed.empty()) return {};
  const std::string separator(1, tools::kPathSeparator);
  const std::string path = tools::CanonicalPath(
      tools::ResolvePath(tools::ReplaceAll(trimmed, "\\", separator), project.ProductFolder()));
  if (IsRoot(path)) return {};
  if (Holds(path, tools::SpecialFolder(tools::kProfileFolder))) return {};
  if (HoldsProduct(path, project)) return {};
  const bool refused =
      std::any_of(locations.begin(), locations.end(),
                  [&path](const SourceLocation& place) { return HoldsSources(path, place); });
  return refused ? std::string{} : path;
}

}  // namespace build
