// The places that no build may delete, because an output folder must not hold them; and the folder
// that a confined build may not leave.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "model/ModProject.h"
#include "tools/files/LinksAndMounts.h"

namespace engine {

/// The rule that refuses an output folder.
enum class FolderRefusal {
  None,
  Blank,           ///< no folder is named
  Root,            ///< the root of a file system, drive or network share
  Home,            ///< it is the home folder or holds it
  Product,         ///< it holds the product's or a version's settings, or a link on the way to them
  Sources,         ///< sources of the version lie in it
  NotAFolder,      ///< something else stands in its place, or in that of a folder above it
  OthersHome,      ///< it is the home folder of another user or holds one
  Program,         ///< it holds this program
  OtherSources,    ///< sources of another version lie in it
  VersionControl,  ///< it belongs to version control, or holds a folder that does
  Mount,           ///< it is the root of a mounted file system that holds anything but a setup
  MountBelow,      ///< a file system is mounted in it
  UnknownSources,  ///< it holds files, and another version's sources cannot be told
  NotReached,      ///< the system does not allow a look at it
};

class ProtectedPlaces {
 public:
  struct Place {
    FolderRefusal rule = FolderRefusal::None;
    std::string path;  ///< what must not be deleted
  };

  /// Gathers homes, the program, the product and all versions, the sources of other versions, and
  /// `sourceFolders`, full paths of folders that hold sources of the version in slot `version`.
  /// `programFolder` may be empty. Raises tools::Error when the product file cannot be read.
  ProtectedPlaces(const model::ModProject& project, model::VersionSlot version,
                  const std::set<std::string>& sourceFolders, const std::string& programFolder);

  /// The place that a folder (a canonical path) is, or that lies in it. Folders are compared by
  /// volume and number, so that a bind mount counts as what it shows, and by path.
  [[nodiscard]] std::optional<Place> PlaceIn(const std::string& folder) const;

  /// Why the sources of another version are not known; empty when they are.
  [[nodiscard]] const std::string& Unread() const { return unread_; }

 private:
  void AddProduct(const model::ModProject& project);
  void AddVersion(const model::ModProject& project, const std::string& folder, bool withSources);
  void AddSourcesOf(const model::ModProject& project, const std::string& componentPath);
  /// Adds what `path` depends on.
  void Add(FolderRefusal rule, const std::string& path);
  /// Adds one place, and the folders above it.
  void AddPlace(const Place& place, const std::string& at);

  tools::MountTable mounts_;
  struct Known {
    std::size_t turn;  ///< in the order in which the places were added
    Place place;
  };
  std::map<std::string, Known> byPath_;  ///< the places themselves
  std::set<std::string> walked_;         ///< places and folders above them that are there
  std::map<std::pair<std::uint64_t, std::uint64_t>, Place> byIdentity_;  ///< volume and number
  std::set<std::pair<FolderRefusal, std::string>> added_;
  std::string unread_;
};

/// For building a product of somebody else, which must not reach beyond its own folder. Raises
/// tools::Error naming the first path that lies outside the product's folder once links are
/// followed: the output folder (none when empty), a settings file of the version, or one of
/// `sourceFolders`.
void RequireConfined(const model::ModProject& project, model::VersionSlot version,
                     const std::string& outputFolder, const std::set<std::string>& sourceFolders);

}  // namespace engine
