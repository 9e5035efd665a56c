#include "engine/OutputFolder.h"

#include <algorithm>
#include <filesystem>

#include "model/TextTable.h"
#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/LinksAndMounts.h"
#include "tools/files/Path.h"

namespace engine {

namespace {

// "/", "C:\" and "\\server\share" have no folder above them that could be listed.
bool IsRoot(const std::string& path) {
  const std::filesystem::path asPath = tools::ToPath(path);
  if (asPath.relative_path().empty()) return true;
  return path.starts_with("\\\\") && std::count(path.begin(), path.end(), '\\') <= 3;
}

bool IsVersionControl(const std::string& name) {
  const std::string folded = tools::FoldCase(name);
  return folded == ".git" || folded == ".hg" || folded == ".svn";
}

// The part of version control that the folder is, lies in or holds at its top; mostly empty.
std::string VersionControlAt(const std::string& folder) {
  for (std::string place = folder; !place.empty();) {
    if (IsVersionControl(tools::FileNamePart(place))) return place;
    std::string above = tools::FolderOf(place);
    if (above.size() >= place.size()) break;
    place = std::move(above);
  }
  for (const char* name : {".git", ".hg", ".svn"}) {
    std::string place = tools::JoinPath(folder, name);
    std::error_code ignored;
    if (std::filesystem::exists(std::filesystem::symlink_status(tools::ToPath(place), ignored))) {
      return place;
    }
  }
  return {};
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

model::Text TextOf(FolderRefusal refusal) {
  using model::Text;
  switch (refusal) {
    case FolderRefusal::None:
    case FolderRefusal::Blank:
      return Text::NoFolderGiven;
    case FolderRefusal::Root:
      return Text::FolderIsRoot;
    case FolderRefusal::Home:
      return Text::FolderHoldsHome;
    case FolderRefusal::Product:
      return Text::FolderHoldsProduct;
    case FolderRefusal::Sources:
      return Text::FolderHoldsSources;
    case FolderRefusal::NotAFolder:
      return Text::FileInFoldersPlace;
    case FolderRefusal::OthersHome:
      return Text::FolderHoldsUsersHome;
    case FolderRefusal::Program:
      return Text::FolderHoldsProgram;
    case FolderRefusal::OtherSources:
      return Text::FolderHoldsOtherSources;
    case FolderRefusal::VersionControl:
      return Text::FolderOfVersionControl;
    case FolderRefusal::Mount:
      return Text::FolderIsMount;
    case FolderRefusal::MountBelow:
      return Text::FolderHoldsMount;
    case FolderRefusal::NotReached:
      return Text::FolderNotReached;
    case FolderRefusal::UnknownSources:
      return Text::SourcesAreUnknown;
  }
  return Text::NoFolderGiven;
}

OutputFolder Refuse(FolderRefusal refusal, const std::string& place) {
  std::string reason = model::LoadText(TextOf(refusal));
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
                                const ProtectedPlaces& places) {
  const std::string path = OutputFolderPath(text, project);
  if (path.empty()) return Refuse(FolderRefusal::Blank, {});
  if (IsRoot(path)) return Refuse(FolderRefusal::Root, path);
  if (const auto place = places.PlaceIn(path)) {
    const bool isItself =
        place->rule == FolderRefusal::Home || place->rule == FolderRefusal::Product;
    return Refuse(place->rule, isItself ? path : place->path);
  }
  const std::string controlled = VersionControlAt(path);
  if (!controlled.empty()) return Refuse(FolderRefusal::VersionControl, controlled);
  try {
    const std::string obstacle = ObstacleOn(path);
    if (!obstacle.empty()) return Refuse(FolderRefusal::NotAFolder, obstacle);
  } catch (const tools::Error& error) {
    return Refuse(FolderRefusal::NotReached, error.what());
  }
  return {path, FolderRefusal::None, {}};
}

OutputFolder AcceptTop(const OutputFolder& folder, bool holdsFiles, const ProtectedPlaces& places) {
  if (!folder.IsAccepted() || !holdsFiles) return folder;
  if (!places.Unread().empty()) return Refuse(FolderRefusal::UnknownSources, places.Unread());
  if (tools::IsMountRoot(folder.path)) {
    const std::string other = FirstOtherFile(folder.path);
    if (!other.empty()) return Refuse(FolderRefusal::Mount, other);
  }
  return folder;
}

OutputFolder AcceptContent(const OutputFolder& folder, const OutputContent& content,
                           const ProtectedPlaces& places) {
  // A setup may install such a folder, carelessly or not: it can be built again.
  const bool isSetup = FirstOtherFile(folder.path).empty();
  for (const std::vector<std::string>* list : {&content.folders, &content.files}) {
    for (const std::string& relative : *list) {
      if (isSetup || !IsVersionControl(tools::FileNamePart(relative))) continue;
      return Refuse(FolderRefusal::VersionControl, tools::JoinPath(folder.path, relative));
    }
  }
  for (const std::string& relative : content.folders) {
    const std::string path = tools::JoinPath(folder.path, relative);
    if (tools::IsMountRoot(path)) return Refuse(FolderRefusal::MountBelow, path);
  }
  return AcceptTop(folder, !content.files.empty(), places);
}

}  // namespace engine
