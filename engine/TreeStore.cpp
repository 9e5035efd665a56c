#include "engine/TreeStore.h"

#include <utility>

#include "tools/Text.h"
#include "tools/files/Path.h"

namespace engine {

namespace {

// The log tells it behind "Unable to copy file ...".
std::string FaultText(const TreePlace& place) {
  switch (place.fault) {
    case TreePlace::Fault::OwnName:
      return "the name belongs to a file that the build makes itself";
    case TreePlace::Fault::FileInTheWay:
      return std::string("a folder of its target is a file already, copied from '")
          .append(place.other)
          .append("'");
    case TreePlace::Fault::FolderInTheWay:
      return "a folder of that name is there already";
    case TreePlace::Fault::None:
      break;
  }
  return {};
}

}  // namespace

TreeStore::TreeStore(std::string folder, std::string usersFolder,
                     const std::vector<std::string>& ownNames, BuildProgress& progress)
    : folder_(std::move(folder)),
      usersFolder_(std::move(usersFolder)),
      places_(ownNames),
      progress_(progress) {}

StoredFile TreeStore::Store(const model::ICFile& entry, std::string_view sourcePath) {
  StoredFile stored;
  stored.name = TreeStoredName(entry, sourcePath);
  TreePlace place;
  std::string target;
  try {
    place = places_.Take(entry, sourcePath);
    stored.copy.errorText = FaultText(place);
    stored.replaced = place.other;
    if (stored.copy.Succeeded()) target = PathOf(place);
  } catch (const tools::Error& error) {
    stored.copy.errorText = tools::ReplaceAll(error.what(), folder_, usersFolder_);
    stored.copy.cause = error.Cause();
  }
  if (stored.copy.Succeeded()) {
    stored.copy = tools::CopyFile(sourcePath, target, [this](std::uint64_t soFar) {
      progress_.Report(filesDone_, totals_.bytesIn + soFar);
    });
  }
  if (!stored.copy.Succeeded()) places_.Release(place);
  if (stored.copy.Succeeded()) {
    ++totals_.files;
    totals_.bytesIn += stored.copy.bytes;
    totals_.bytesOut += stored.copy.bytes;
  }
  progress_.Report(++filesDone_, totals_.bytesIn);
  return stored;
}

std::string TreeStore::PathOf(const TreePlace& place) {
  std::string path = tools::JoinPath(folder_, place.path);
  std::string folder = tools::FolderOf(path);
  // Neighbouring files mostly share their folder: it is made once.
  if (folder != lastFolder_) {
    tools::MakeFolderBelow(folder_, tools::FolderOf(place.path));
    lastFolder_ = std::move(folder);
  }
  return path;
}

}  // namespace engine
