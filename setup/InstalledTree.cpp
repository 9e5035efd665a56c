#include "setup/InstalledTree.h"

#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/Path.h"

namespace setup {

InstalledTree::Place InstalledTree::PlaceOf(const TargetPath& target) {
  Place place{.key = {}, .path = folder_};
  const std::string* part = &target.top;
  for (const std::string& next : target.parts) {
    place.key.append(tools::FoldCase(*part)).append("\\");
    std::string& known = folders_[place.key];
    if (known.empty()) {
      known = tools::JoinPath(place.path, *part);
      tools::MakeFolder(known);
    }
    place.path = known;
    part = &next;
  }
  place.key += tools::FoldCase(*part);
  const auto file = files_.find(place.key);
  place.occupied = file != files_.end();
  place.path = tools::JoinPath(place.path, place.occupied ? file->second : *part);
  return place;
}

void InstalledTree::Occupy(const Place& place) {
  files_.insert_or_assign(place.key, tools::FileNamePart(place.path));
}

std::string InstalledTree::Below(const std::string& path) const {
  std::string below = path.substr(tools::EnsureTrailingSeparator(folder_).size());
  for (char& c : below) {
    if (tools::IsPathSeparator(c)) c = '/';
  }
  return below;
}

}  // namespace setup
