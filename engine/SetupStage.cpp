#include "engine/SetupStage.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <set>
#include <string_view>

#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/FindFiles.h"
#include "tools/files/Path.h"
#include "tools/files/TemporaryFiles.h"

namespace engine {

namespace {

// What a stage holds: the new setup; the old content while it is set aside; all of that, once it
// is; and a mark, while the old content goes back because the new setup could not move in.
constexpr std::string_view kNew = "new";
constexpr std::string_view kOld = "old";
constexpr std::string_view kReplaced = "replaced";
constexpr std::string_view kGoingBack = "back";

// Every name in a folder, links that lead anywhere or nowhere included.
std::vector<std::string> NamesIn(const std::string& folder) {
  std::error_code failure;
  std::vector<std::string> names;
  for (tools::FolderEntry& entry : tools::ListEntries(folder, failure)) {
    names.push_back(std::move(entry.name));
  }
  if (failure) throw tools::PathError("Der Ordner kann nicht gelesen werden", folder, failure);
  std::sort(names.begin(), names.end());
  return names;
}

// Links that lead nowhere included. What cannot be looked at must not count as absent.
bool IsThere(const std::string& path) {
  std::error_code failure;
  const auto status = std::filesystem::symlink_status(tools::ToPath(path), failure);
  if (status.type() == std::filesystem::file_type::not_found) return false;
  if (failure) throw tools::PathError("Die Datei kann nicht gelesen werden", path, failure);
  return true;
}

/// Moves what lies in `from`, if that is there, to the names that are free in `to`.
void MoveContent(tools::Disk& disk, const std::string& from, const std::string& to) {
  if (!IsThere(from)) return;
  for (const std::string& name : NamesIn(from)) {
    const std::string target = tools::JoinPath(to, name);
    if (!IsThere(target)) disk.Replace(tools::JoinPath(from, name), target);
  }
}

/// Calls `action` with the path of each hidden folder (or file) in the output folder that no
/// running build holds.
void ForEachLeftover(const tools::FolderClaim& output, tools::FolderEntry::Kind kind,
                     const std::function<void(const std::string& stage)>& action) {
  std::error_code failure;
  const auto entries = tools::ListEntries(output.Path(), failure);
  if (failure) {
    throw tools::PathError("Der Ordner kann nicht gelesen werden", output.Path(), failure);
  }
  for (const tools::FolderEntry& entry : entries) {
    const std::string stage = tools::JoinPath(output.Path(), entry.name);
    if (entry.kind == kind && tools::IsTemporaryName(entry.name) && tools::IsOwnerGone(stage)) {
      action(stage);
    }
  }
}

/// The folders of a stage whose content belongs into the output folder. Only a new setup that is
/// whole replaces an old one: once all of that is aside, go forward, unless it was going back.
std::vector<std::string> FoldersToRestore(const std::string& stage) {
  const auto inStage = [&stage](std::string_view name) { return tools::JoinPath(stage, name); };
  if (IsThere(inStage(kGoingBack))) return {inStage(kOld), inStage(kReplaced)};
  return {inStage(IsThere(inStage(kReplaced)) ? kNew : kOld)};
}

/// True when somebody else's files have taken the names of old content.
bool HoldsOldContent(const std::string& stage) {
  const std::vector<std::string> folders = FoldersToRestore(stage);
  return std::any_of(folders.begin(), folders.end(), [](const std::string& folder) {
    return tools::FileNamePart(folder) != kNew && IsThere(folder) && !NamesIn(folder).empty();
  });
}

void RemoveLeftovers(const tools::FolderClaim& output) {
  for (const auto kind : {tools::FolderEntry::Kind::Folder, tools::FolderEntry::Kind::File}) {
    ForEachLeftover(output, kind, [&output](const std::string& path) {
      try {
        if (!HoldsOldContent(path)) output.Remove(tools::FileNamePart(path));
      } catch (const tools::Error&) {  // NOLINT(bugprone-empty-catch): the next build tries again
      }
    });
  }
}

void MakeNewFolder(const std::string& path) {
  if (const std::error_code cause = tools::CreateOneFolder(path)) {
    throw tools::PathError("Der Ordner kann nicht angelegt werden", path, cause);
  }
}

}  // namespace

void SetupStage::Recover(tools::Disk& disk, const tools::FolderClaim& output) {
  ForEachLeftover(output, tools::FolderEntry::Kind::Folder, [&](const std::string& stage) {
    for (const std::string& folder : FoldersToRestore(stage)) {
      MoveContent(disk, folder, output.Path());
    }
  });
}

SetupStage::SetupStage(tools::Disk& disk, const tools::FolderClaim& output)
    : disk_(disk), output_(output) {
  RemoveLeftovers(output_);
  try {
    hold_.emplace(InOutput("x"), &MakeNewFolder);
    // Else what follows would be made, and replaced, in another folder.
    if (!output_.Holds(tools::FileNamePart(hold_->Path()))) {
      (void)tools::RemoveEmptyFolder(hold_->Path());
      throw tools::Error({}, std::make_error_code(std::errc::no_such_file_or_directory));
    }
    new_ = tools::JoinPath(hold_->Path(), kNew);
    old_ = tools::JoinPath(hold_->Path(), kOld);
    replaced_ = tools::JoinPath(hold_->Path(), kReplaced);
    MakeNewFolder(new_);
  } catch (const tools::Error& error) {
    if (hold_) Remove();
    throw tools::PathError("In den Ausgabeordner kann nicht geschrieben werden", output_.Path(),
                           error.Cause());
  }
}

SetupStage::~SetupStage() {
  if (!isKept_) Remove();
}

void SetupStage::Remove() noexcept {
  if (!hold_) return;
  const std::string name = tools::FileNamePart(hold_->Path());
  hold_.reset();
  try {
    output_.Remove(name);
  } catch (const tools::Error&) {  // NOLINT(bugprone-empty-catch): the next build here tries again
  }
}

std::string SetupStage::WithUsersPaths(const std::string& text) const {
  return tools::ReplaceAll(tools::ReplaceAll(text, new_, output_.Path()), old_, output_.Path());
}

std::optional<tools::Error> SetupStage::Publish(const OutputContent* old) {
  const std::vector<std::string> names = NamesIn(new_);
  try {
    // All of the old setup goes before any of the new one comes: whenever this ends, no mixture of
    // the two stands there.
    SetOldAside(old, names);
    Move(old_, replaced_, output_.Path());
    for (const std::string& name : names) {
      if (IsThere(InOutput(name))) FailForNewFile(InOutput(name));
      Move(tools::JoinPath(new_, name), InOutput(name), InOutput(name));
    }
  } catch (const tools::Error& error) {
    if (MoveBack()) throw;
    throw tools::Error(std::string(error.what()) +
                           ". Der bisherige Inhalt des Ausgabeordners liegt in " + hold_->Path(),
                       error.Cause());
  }
  try {
    output_.Remove(tools::JoinPath(tools::FileNamePart(hold_->Path()), kReplaced));
    return std::nullopt;
  } catch (const tools::Error& error) {
    // Often somebody had one of the files open for a moment.
    const std::string stage = hold_->Path();
    Remove();
    try {
      return IsThere(stage) ? std::optional(error) : std::nullopt;
    } catch (const tools::Error&) {
      return error;  // whether it is gone is not known
    }
  }
}

void SetupStage::FailForNewFile(const std::string& path) {
  throw tools::Error("Im Ausgabeordner sind inzwischen Dateien entstanden: " + path);
}

void SetupStage::SetOldAside(const OutputContent* old, const std::vector<std::string>& newNames) {
  // Empty folders go only where the new setup takes their names.
  std::vector<std::string> names = old != nullptr ? NamesIn(output_.Path()) : newNames;
  std::erase_if(names, [this](const std::string& name) {
    return tools::IsTemporaryName(name) || !IsThere(InOutput(name));
  });
  MakeNewFolder(old_);
  for (const std::string& name : names) {
    Move(InOutput(name), tools::JoinPath(old_, name), InOutput(name));
  }
  // Looked at here, where nobody adds to it any more.
  std::set<std::string_view> known;
  if (old != nullptr) known.insert(old->files.begin(), old->files.end());
  for (const std::string& file : ContentOf(old_).files) {
    if (!known.contains(file)) FailForNewFile(InOutput(file));
  }
  if (old == nullptr && HoldsFiles(output_.Path())) FailForNewFile(output_.Path());
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
  // Tells a later build which way to go on, should this one be killed or fail on the way.
  (void)tools::CreateOneFolder(tools::JoinPath(hold_->Path(), kGoingBack));
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
  return tools::JoinPath(output_.Path(), name);
}

}  // namespace engine
