#include "engine/TreePlaces.h"

#include <utility>

#include "engine/InstallScript.h"
#include "model/FolderTable.h"
#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/files/Path.h"

namespace engine {

namespace {

// The parts of a path with "\" between them, "." and ".." worked out.
std::vector<std::string> PlainParts(const std::string& scriptPath) {
  std::vector<std::string> parts;
  for (std::string& part : tools::SplitList(scriptPath, '\\', '\0')) {
    if (part.empty() || part == ".") continue;
    if (part != "..") {
      parts.push_back(std::move(part));
    } else if (parts.empty()) {
      throw tools::Error("Der Zielordner liegt außerhalb des Ausgabeordners: " + scriptPath);
    } else {
      parts.pop_back();
    }
  }
  return parts;
}

// The same key for all names that are one under Windows.
std::string WindowsKeyOf(std::string_view name) {
  std::string key = tools::LowerCase(name);
  const std::size_t last = key.find_last_not_of(". ");
  if (last != std::string::npos) key.resize(last + 1);
  return "\\" + key;
}

std::string Below(const std::string& folder, const std::string& name) {
  return folder.empty() ? name : tools::JoinPath(folder, name);
}

}  // namespace

std::string TreeStoredName(const model::ICFile& entry, std::string_view sourcePath) {
  std::string name = tools::ReplaceAll(model::FolderMacro(entry.TargetFolder), "%", "");
  if (!entry.TargetSubFolder.empty()) {
    name.append("\\").append(tools::ReplaceAll(entry.TargetSubFolder, "/", "\\"));
  }
  return name.append("\\").append(tools::FileNamePart(sourcePath));
}

TreePlaces::TreePlaces(const std::vector<std::string>& ownNames) {
  for (const std::string& name : ownNames) ownKeys_.insert(WindowsKeyOf(name));
}

TreePlace TreePlaces::Take(const model::ICFile& entry, std::string_view sourcePath) {
  const std::string stored = TreeStoredName(entry, sourcePath);
  const std::string name(ScriptFileName(stored));
  const Folder& folder = FolderAt(stored.substr(0, stored.size() - name.size()));
  if (folder.fault != TreePlace::Fault::None) return {folder.fault, {}, folder.other};
  const std::string key = folder.key + WindowsKeyOf(name);
  if (ownKeys_.contains(key)) return {TreePlace::Fault::OwnName, {}, {}};
  if (spelled_.contains(key)) return {TreePlace::Fault::FolderInTheWay, {}, {}};
  File& file = files_.try_emplace(key, File{{}, name}).first->second;
  const std::string_view before = std::exchange(file.source, sourcePath);
  return {TreePlace::Fault::None, Below(folder.path, file.name),
          before == sourcePath ? std::string_view{} : before, key, before};
}

void TreePlaces::Release(const TreePlace& place) {
  if (place.key.empty()) return;
  if (place.before.empty()) {
    files_.erase(place.key);
  } else {
    files_.at(place.key).source = place.before;
  }
}

// Neighbouring files mostly share their folder.
const TreePlaces::Folder& TreePlaces::FolderAt(const std::string& scriptFolder) {
  const auto known = folders_.find(scriptFolder);
  if (known != folders_.end()) return known->second;
  return folders_.emplace(scriptFolder, Enter(scriptFolder)).first->second;
}

TreePlaces::Folder TreePlaces::Enter(const std::string& scriptFolder) {
  Folder folder;
  std::vector<std::pair<std::string, std::string>> entered;
  for (std::string& part : PlainParts(scriptFolder)) {
    folder.key += WindowsKeyOf(part);
    if (ownKeys_.contains(folder.key)) return {TreePlace::Fault::OwnName, {}, {}, {}};
    const auto file = files_.find(folder.key);
    if (file != files_.end()) {
      return {TreePlace::Fault::FileInTheWay, file->second.source, {}, {}};
    }
    const auto known = spelled_.find(folder.key);
    folder.path = Below(folder.path, known == spelled_.end() ? part : known->second);
    if (known == spelled_.end()) entered.emplace_back(folder.key, std::move(part));
  }
  for (auto& [key, spelling] : entered) spelled_.emplace(std::move(key), std::move(spelling));
  return folder;
}

}  // namespace engine
