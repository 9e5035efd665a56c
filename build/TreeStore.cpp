#include "build/TreeStore.h"

#include <utility>
#include <vector>

#include "model/FolderTable.h"
#include "tools/Path.h"
#include "tools/Text.h"

namespace build {

namespace {

// Folder below the output folder, with "\" between its parts.
std::string ScriptFolder(const model::ICFile& entry) {
  std::string folder = tools::ReplaceAll(model::FolderMacro(entry.TargetFolder), "%", "");
  if (!entry.TargetSubFolder.empty()) {
    folder.append("\\").append(tools::ReplaceAll(entry.TargetSubFolder, "/", "\\"));
  }
  return folder;
}

}  // namespace

std::string TreeStoredName(const model::ICFile& entry, std::string_view sourcePath) {
  return ScriptFolder(entry) + "\\" + tools::FileNamePart(sourcePath);
}

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

TreeStore::TreeStore(std::string outputFolder, BuildProgress& progress)
    : outputFolder_(std::move(outputFolder)), progress_(progress) {}

StoredFile TreeStore::Store(const model::ICFile& entry, const std::string& sourcePath) {
  StoredFile stored;
  stored.name = TreeStoredName(entry, sourcePath);
  std::string target;
  try {
    target =
        tools::JoinPath(MakeTargetFolder(ScriptFolder(entry)), tools::FileNamePart(sourcePath));
  } catch (const tools::Error& error) {
    stored.copy.errorText = error.what();
    stored.copy.cause = error.Cause();
  }
  if (stored.copy.Succeeded()) {
    stored.copy = tools::CopyFile(sourcePath, target, [this](std::uint64_t soFar) {
      progress_.Report(filesDone_, totals_.bytesIn + soFar);
    });
  }
  if (stored.copy.Succeeded()) {
    ++totals_.files;
    totals_.bytesIn += stored.copy.bytes;
    totals_.bytesOut += stored.copy.bytes;
  }
  progress_.Report(++filesDone_, totals_.bytesIn);
  return stored;
}

// Neighbouring files mostly share their folder: it is made once.
std::string TreeStore::MakeTargetFolder(const std::string& scriptFolder) {
  if (!lastFolder_.empty() && scriptFolder == lastScriptFolder_) return lastFolder_;
  std::string folder = outputFolder_;
  for (const std::string& part : PlainParts(scriptFolder)) folder = tools::JoinPath(folder, part);
  tools::MakeFolder(folder);
  lastFolder_ = folder;
  lastScriptFolder_ = scriptFolder;
  return folder;
}

}  // namespace build
