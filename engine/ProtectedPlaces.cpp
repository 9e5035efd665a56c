#include "engine/ProtectedPlaces.h"

#include <limits>
#include <memory>

#include "engine/ComponentFiles.h"
#include "engine/SettingsText.h"
#include "engine/SourceList.h"
#include "tools/Error.h"
#include "tools/Numbers.h"
#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/FindFiles.h"
#include "tools/files/LinksAndMounts.h"
#include "tools/files/Names.h"
#include "tools/files/Path.h"
#include "tools/files/SpecialFolders.h"
#include "tools/settings/SettingsFile.h"

namespace engine {

namespace {

/// The same key for all paths that are one on this machine.
std::string PlaceKeyOf(const std::string& path) {
  return tools::kPathSeparator == '\\' ? tools::FoldCase(path) : path;
}

tools::FileStamp StampWherePossible(const std::string& path) {
  try {
    return tools::StampOf(path);
  } catch (const tools::Error&) {
    return {};  // its path still tells it
  }
}

}  // namespace

ProtectedPlaces::ProtectedPlaces(const model::ModProject& project, model::VersionSlot version,
                                 const std::set<std::string>& sourceFolders,
                                 const std::string& programFolder) {
  // Where several rules protect a place, the one added first is reported.
  Add(FolderRefusal::Home, tools::SpecialFolder(tools::kProfileFolder));
  for (const std::string& home : tools::HomeFolders()) Add(FolderRefusal::OthersHome, home);
  AddProduct(project);
  for (const std::string& folder : sourceFolders) Add(FolderRefusal::Sources, folder);
  const std::string own = project.VersionString(version);
  // Those beyond a damaged count, too.
  for (const std::string& text : project.StoredVersionTexts()) {
    if (!tools::IsSafeNamePart(text)) continue;
    AddVersion(project, project.VersionFolder(text), text != own);
  }
  Add(FolderRefusal::Program, programFolder);
}

void ProtectedPlaces::AddProduct(const model::ModProject& project) {
  Add(FolderRefusal::Product, project.ProductPath());
  for (const std::string& text : project.StoredVersionTexts()) {
    if (tools::IsSafeNamePart(text)) {
      Add(FolderRefusal::Product, project.VersionFolder(text));
    }
  }
}

void ProtectedPlaces::AddVersion(const model::ModProject& project, const std::string& folder,
                                 bool withSources) {
  std::error_code failure;
  const std::vector<tools::FolderEntry> entries = tools::ListEntries(folder, failure);
  if (failure && failure != std::errc::no_such_file_or_directory && unread_.empty()) {
    unread_ = tools::PathError("Der Ordner kann nicht gelesen werden", folder, failure).what();
  }
  for (const tools::FolderEntry& entry : entries) {
    const std::string path = tools::JoinPath(folder, entry.name);
    // A file of its own lies in the folder; a link may lead anywhere.
    if (entry.kind == tools::FolderEntry::Kind::Other) Add(FolderRefusal::Product, path);
    const bool isComponent = entry.kind != tools::FolderEntry::Kind::Folder &&
                             tools::LowerCase(entry.name).ends_with(".component");
    if (!withSources || !isComponent) continue;
    try {
      AddSourcesOf(project, path);
    } catch (const tools::Error& error) {
      if (unread_.empty()) unread_ = error.what();
    }
  }
}

void ProtectedPlaces::AddSourcesOf(const model::ModProject& project,
                                   const std::string& componentPath) {
  const std::shared_ptr<const tools::SettingsFile> settings =
      project.Settings().Load(componentPath);
  constexpr std::int32_t kAnyNumber = std::numeric_limits<std::int32_t>::max();
  for (const std::int32_t number : StoredEntries(*settings, kAnyNumber)) {
    const std::string section = "File" + std::to_string(number);
    model::ICFile entry;
    entry.SourcePath = settings->Read(section, "SourcePath", "");
    entry.SourceName = settings->Read(section, "SourceName", "");
    if (entry.SourcePath.size() + entry.SourceName.size() > tools::kLongestPath) continue;
    const std::string folder = SourceFolderOf(entry, project.ProductFolder());
    Add(FolderRefusal::OtherSources, folder);
    if (tools::LeadingNumber(settings->Read(section, "Type", "1")) == model::ICFile::kFolderScan) {
      continue;
    }
    // The name may hold a folder part, and the file may be a link.
    for (const std::string& place :
         tools::PlacesOnTheWay(tools::JoinPath(folder, entry.SourceName))) {
      Add(FolderRefusal::OtherSources, tools::FolderOf(place));
    }
  }
}

void ProtectedPlaces::Add(FolderRefusal rule, const std::string& path) {
  if (path.empty() || path.size() > tools::kLongestPath) return;
  if (!added_.emplace(rule, path).second) return;
  for (const std::string& place : tools::PlacesOnTheWay(path)) {
    AddPlace({rule, path}, place);
    // Each path of a place has other folders above it.
    for (const std::string& other : mounts_.OtherPathsOf(place)) AddPlace({rule, path}, other);
  }
}

// Of the folders above a place only those are kept that are there: thousands that are not would
// each cost the length of its path.
void ProtectedPlaces::AddPlace(const Place& place, const std::string& at) {
  if (!byPath_.try_emplace(PlaceKeyOf(at), Known{byPath_.size(), place}).second) return;
  for (std::string folder = at; !folder.empty();) {
    // The folders above a known one were added with it.
    if (walked_.contains(folder)) return;
    const tools::FileStamp stamp = StampWherePossible(folder);
    if (stamp.exists) {
      walked_.insert(folder);
      byIdentity_.emplace(std::pair{stamp.device, stamp.identity}, place);
    }
    std::string above = tools::FolderOf(folder);
    if (above.size() >= folder.size()) return;
    folder = std::move(above);
  }
}

std::optional<ProtectedPlaces::Place> ProtectedPlaces::PlaceIn(const std::string& folder) const {
  const std::string key = PlaceKeyOf(folder);
  const Known* first = nullptr;
  if (const auto itself = byPath_.find(key); itself != byPath_.end()) first = &itself->second;
  const std::string below = tools::EnsureTrailingSeparator(key);
  for (auto it = byPath_.lower_bound(below); it != byPath_.end() && it->first.starts_with(below);
       ++it) {
    if (first == nullptr || it->second.turn < first->turn) first = &it->second;
  }
  if (first != nullptr) return first->place;
  const tools::FileStamp stamp = StampWherePossible(folder);
  if (!stamp.exists) return std::nullopt;
  const auto found = byIdentity_.find({stamp.device, stamp.identity});
  if (found == byIdentity_.end()) return std::nullopt;
  return found->second;
}

void RequireConfined(const model::ModProject& project, model::VersionSlot version,
                     const std::string& outputFolder, const std::set<std::string>& sourceFolders) {
  const std::string limit = tools::CanonicalPath(project.ProductFolder());
  const auto require = [&limit](const std::string& path) {
    if (tools::IsSameOrBelow(tools::CanonicalPath(path), limit)) return;
    throw tools::Error("Das liegt außerhalb des Ordners des Produkts: " + path);
  };
  if (!outputFolder.empty()) require(outputFolder);
  require(project.ProductPath());
  require(project.VersionFilePath(version));
  for (const model::ComponentSlot slot : ListComponentFiles(project, version).slots) {
    require(project.ComponentFilePath(version, slot));
  }
  for (const std::string& folder : sourceFolders) require(folder);
}

}  // namespace engine
