#include "engine/SetupStage.h"

#include <algorithm>
#include <filesystem>

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

}  // namespace

SetupStage::SetupStage(tools::Disk& disk, std::string outputFolder)
    : disk_(disk), outputFolder_(std::move(outputFolder)) {
  tools::MakeFolder(outputFolder_);
  RemoveLeftovers();
  stage_ = tools::TemporaryNameBeside(InOutput("x"));
  new_ = tools::JoinPath(stage_, "new");
  old_ = tools::JoinPath(stage_, "old");
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
}

// A killed build holds no lock any more.
void SetupStage::RemoveLeftovers() const {
  for (const std::string& name : NamesIn(outputFolder_)) {
    if (!tools::IsTemporaryName(name)) continue;
    try {
      const tools::FolderLock lock(InOutput(name));
      tools::RemoveFolderTree(InOutput(name));
    } catch (const tools::Error&) {  // NOLINT(bugprone-empty-catch): another build is still at it
    }
  }
}

std::string SetupStage::WithUsersPaths(const std::string& text) const {
  return tools::ReplaceAll(text, new_, outputFolder_);
}

std::optional<tools::Error> SetupStage::Publish(bool mayDelete) {
  const std::vector<std::string> names = NamesIn(new_);
  try {
    // All of the old setup goes before any of the new one comes: whenever this ends, no mixture of
    // the two stands there.
    SetOldAside(mayDelete, names);
    for (const std::string& name : names) {
      Move(tools::JoinPath(new_, name), InOutput(name), InOutput(name));
    }
  } catch (const tools::Error& error) {
    if (MoveBack()) throw;
    throw tools::Error(
        std::string(error.what()) + ". Der bisherige Inhalt des Ausgabeordners liegt in " + old_,
        error.Cause());
  }
  try {
    tools::RemoveFolderTree(old_);
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
  if (old.empty()) return;
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
