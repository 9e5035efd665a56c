#include "engine/OutputFolder.h"

#include <algorithm>
#include <filesystem>

#include "model/TextTable.h"
#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/FindFiles.h"
#include "tools/files/FolderListing.h"
#include "tools/files/Path.h"
#include "tools/files/SpecialFolders.h"
#include "tools/files/TemporaryName.h"

namespace engine {

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
  // Those beyond a damaged count, too.
  const std::vector<std::string> versions = project.StoredVersionTexts();
  return std::any_of(versions.begin(), versions.end(), [&](const std::string& version) {
    return model::IsSafeVersionText(version) && Holds(output, project.VersionFolder(version));
  });
}

// The first thing on the way to `path`, itself included, that is there and is no folder.
std::string ObstacleOn(const std::string& path) {
  for (std::string place = path; !place.empty() && !tools::FolderExists(place);) {
    std::error_code ignored;
    if (std::filesystem::exists(std::filesystem::symlink_status(tools::ToPath(place), ignored))) {
      return place;
    }
    std::string above = tools::FolderOf(place);
    if (above.size() >= place.size()) break;
    place = std::move(above);
  }
  return {};
}

OutputFolder Refuse(FolderRefusal refusal, model::Text text, const std::string& place) {
  std::string reason = model::LoadText(text);
  if (!place.empty()) reason.append(": ").append(place);
  return {{}, refusal, std::move(reason)};
}

}  // namespace

std::string OutputFolderPath(std::string_view text, const model::ModProject& project) {
  const std::string_view trimmed = tools::TrimBlanks(text);
  if (trimmed.empty()) return {};
  return tools::CanonicalPath(tools::ResolvePath(trimmed, project.ProductFolder()));
}

OutputFolder AcceptOutputFolder(std::string_view text, const model::ModProject& project,
                                const std::set<std::string>& sourceFolders) {
  const std::string path = OutputFolderPath(text, project);
  if (path.empty()) return Refuse(FolderRefusal::Blank, model::Text::NoFolderGiven, {});
  if (IsRoot(path)) return Refuse(FolderRefusal::Root, model::Text::FolderIsRoot, path);
  if (Holds(path, tools::SpecialFolder(tools::kProfileFolder))) {
    return Refuse(FolderRefusal::Home, model::Text::FolderHoldsHome, path);
  }
  if (HoldsProduct(path, project))
    return Refuse(FolderRefusal::Product, model::Text::FolderHoldsProduct, path);
  for (const std::string& folder : sourceFolders) {
    if (Holds(path, folder))
      return Refuse(FolderRefusal::Sources, model::Text::FolderHoldsSources, folder);
  }
  const std::string obstacle = ObstacleOn(path);
  if (!obstacle.empty())
    return Refuse(FolderRefusal::NotAFolder, model::Text::FileInFoldersPlace, obstacle);
  return {path, FolderRefusal::None, {}};
}

bool HoldsFiles(const std::string& folder) {
  if (!tools::FolderExists(folder)) return false;
  std::error_code failure;
  const std::vector<tools::FolderItem> items = tools::ListFolder(folder, failure);
  if (failure) return true;
  return std::any_of(items.begin(), items.end(), [&folder](const tools::FolderItem& item) {
    if (tools::IsTemporaryName(item.name)) return false;
    if (item.kind != tools::FolderItem::Kind::Folder) {
      return item.kind == tools::FolderItem::Kind::File;
    }
    const tools::FoundFiles found = tools::SearchFiles(tools::JoinPath(folder, item.name), "*.*",
                                                       {.includeSubfolders = true, .atMost = 1});
    return !found.paths.empty() || !found.unreadFolders.empty();
  });
}

}  // namespace engine
