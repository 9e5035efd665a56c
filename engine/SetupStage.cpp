#include "engine/SetupStage.h"

#include <algorithm>
#include <filesystem>
#include <functional>

#include "engine/OutputFolder.h"
#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/Path.h"
#include "tools/files/TemporaryName.h"

namespace engine {

namespace {

// Every name in a folder, links that lead anywhere or nowhere included.
std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code failure;
  for (std::filesystem::directory_iterator place(tools::ToPath(folder), failure), end;
       !failure && place != end; place.increment(failure)) {
    names.push_back(tools::FromPath(place->path().filename()));
  }
  if (failure) throw tools::PathError("Der Ordner kann nicht gelesen werden", folder, failure);
  std::sort(names.begin(), names.end());
  return names;
}

bool IsThere(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::exists(std::filesystem::symlink_status(tools::ToPath(path), ignored));
}

constexpr std::string_view kNew = "new";
constexpr std::string_view kOld = "old";
constexpr std::string_view kReplaced = "replaced";

/// Moves what lies in `from`, if that is there, to the names that are free in `to`.
void MoveContent(tools::Disk& disk, const std::string& from, const std::string& to) {
  if (!IsThere(from)) return;
  for (const std::string& name : NamesIn(from)) {
    const std::string target = tools::JoinPath(to, name);
    if (!IsThere(target)) disk.Replace(tools::JoinPath(from, name), target);
  }
}

}  // namespace

namespace {

/// Calls `action` for each hidden folder in the output folder that no running build holds.
void ForEachLeftover(const std::string& outputFolder,
                     const std::function<void(const std::string& stage)>& action) {
  for (const std::string& name : NamesIn(outputFolder)) {
    const std::string stage = tools::JoinPath(outputFolder, name);
    if (!tools::IsTemporaryName(name) || !tools::FolderExists(stage)) continue;
    std::optional<tools::FolderLock> lock;
    try {
      lock.emplace(stage);
    } catch (const tools::Error&) {  // NOLINT(bugprone-empty-catch): another build is still at it
      continue;
    }
    action(stage);
  }
}

/// Only a new setup that is whole replaces an old one: once all of that is aside, go forward.
std::string ContentToRestore(const std::string& stage) {
  return tools::JoinPath(stage, IsThere(tools::JoinPath(stage, kReplaced)) ? kNew : kOld);
}

void RemoveLeftovers(const std::string& outputFolder) {
  ForEachLeftover(outputFolder, [](const std::string& stage) {
    const std::string content = ContentToRestore(stage);
    // Somebody else's files have taken its names: it stays where it is.
    if (IsThere(content) && !content.ends_with(kNew) && !NamesIn(content).empty()) return;
    try {
      tools::RemoveFolderTree(stage);
    } catch (const tools::Error&) {  // NOLINT(bugprone-empty-catch): the next build tries again
    }
  });
}

}  // namespace

void SetupStage::Recover(tools::Disk& disk, const std::string& outputFolder) {
  if (!tools::FolderExists(outputFolder)) return;
  const tools::FolderLock lock(outputFolder);
  ForEachLeftover(outputFolder, [&](const std::string& stage) {
    MoveContent(disk, ContentToRestore(stage), outputFolder);
  });
}

SetupStage::SetupStage(tools::Disk& disk, std::string outputFolder)
    : disk_(disk), outputFolder_(std::move(outputFolder)) {
  madeFolders_ = tools::MakeFolder(outputFolder_);
  RemoveLeftovers(outputFolder_);
  stage_ = tools::TemporaryNameBeside(InOutput("x"));
  new_ = tools::JoinPath(stage_, kNew);
  old_ = tools::JoinPath(stage_, kOld);
  replaced_ = tools::JoinPath(stage_, kReplaced);
  try {
    tools::MakeFolder(stage_);
    lock_.emplace(stage_);
    tools::MakeFolder(new_);
  } catch (const tools::Error& error) {
    throw tools::PathError("In den Ausgabeordner kann nicht geschrieben werden", outputFolder_,
                           error.Cause());
  }
}

SetupStage::~SetupStage() {
  if (isKept_) return;
  try {
    tools::RemoveFolderTree(stage_);
  } catch (const tools::Error&) {  // NOLINT(bugprone-empty-catch): the next build here tries again
  }
  // Only an empty folder can be removed so.
  std::error_code ignored;
  for (; !madeFolders_.empty(); madeFolders_.pop_back()) {
    std::filesystem::remove(tools::ToPath(madeFolders_.back()), ignored);
  }
}

std::string SetupStage::WithUsersPaths(const std::string& text) const {
  return tools::ReplaceAll(text, new_, outputFolder_);
}

std::optional<tools::Error> SetupStage::Publish(bool mayDelete) {
  const tools::FolderLock lock(outputFolder_);  // two builds must not mix their moves
  const std::vector<std::string> names = NamesIn(new_);
  try {
    // All of the old setup goes before any of the new one comes: whenever this ends, no mixture of
    // the two stands there.
    SetOldAside(mayDelete, names);
    Move(old_, replaced_, outputFolder_);
    for (const std::string& name : names) {
      Move(tools::JoinPath(new_, name), InOutput(name), InOutput(name));
    }
  } catch (const tools::Error& error) {
    if (MoveBack()) throw;
    throw tools::Error(
        std::string(error.what()) + ". Der bisherige Inhalt des Ausgabeordners liegt in " + stage_,
        error.Cause());
  }
  try {
    tools::RemoveFolderTree(replaced_);
    return std::nullopt;
  } catch (const tools::Error& error) {
    return error;
  }
}

void SetupStage::SetOldAside(bool mayDelete, const std::vector<std::string>& newNames) {
  if (!mayDelete && HoldsFiles(outputFolder_)) {
    throw tools::Error("Im Ausgabeordner sind inzwischen Dateien entstanden: " + outputFolder_);
  }
  std::vector<std::string> old = mayDelete ? NamesIn(outputFolder_) : newNames;
  std::erase_if(old, [this](const std::string& name) {
    return tools::IsTemporaryName(name) || !IsThere(InOutput(name));
  });
  tools::MakeFolder(old_);
  for (const std::string& name : old) {
    Move(InOutput(name), tools::JoinPath(old_, name), InOutput(name));
  }
}

void SetupStage::Move(const std::string& from, const std::string& to,
                      const std::string& usersPath) {
  try {
    disk_.Replace(from, to);
  } catch (const tools::Error& error) {
    throw tools::PathError("Der Inhalt des Ausgabeordners kann nicht ersetzt werden", usersPath,
                           error.Cause());
  }
  moved_.emplace_back(from, to);
}

bool SetupStage::MoveBack() {
  for (; !moved_.empty(); moved_.pop_back()) {
    try {
      disk_.Replace(moved_.back().second, moved_.back().first);
    } catch (const tools::Error&) {
      isKept_ = true;  // the rest still goes back
    }
  }
  return !isKept_;
}

std::string SetupStage::InOutput(const std::string& name) const {
  return tools::JoinPath(outputFolder_, name);
}

}  // namespace engine
