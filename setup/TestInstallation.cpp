#include "setup/TestInstallation.h"

#include <filesystem>
#include <unordered_map>
#include <utility>

#include "setup/TargetPath.h"
#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/Path.h"

namespace setup {

namespace {

/// The files of a test installation by their targets, where case does not count, as under Windows.
class InstalledTree {
 public:
  explicit InstalledTree(std::string folder) : folder_(std::move(folder)) {}

  struct Place {
    std::string key;   ///< the same for all spellings of a target
    std::string path;  ///< full path, with the spelling that came first
    bool occupied = false;
  };
  /// Where a file with this target goes; makes the folders above it. Raises tools::Error when one
  /// of them cannot be made.
  [[nodiscard]] Place PlaceOf(const TargetPath& target);
  void Occupy(const Place& place);
  void Free(const Place& place) { files_.erase(place.key); }
  /// `path` of a place, below the folder, with "/".
  [[nodiscard]] std::string Below(const std::string& path) const;

 private:
  struct Folder {
    std::size_t number;  ///< from 1; 0 is the folder that all lie in
    std::string name;    ///< with the spelling that came first
  };
  // A key with all folders above would, in deep folders, take a thousand times the script's room.
  static std::string KeyIn(std::size_t folder, const std::string& name) {
    return std::to_string(folder) + "\\" + tools::FoldCase(name);
  }

  std::string folder_;
  std::unordered_map<std::string, Folder> folders_;
  std::unordered_map<std::string, std::string> files_;  ///< key to name
};

InstalledTree::Place InstalledTree::PlaceOf(const TargetPath& target) {
  Place place{.key = {}, .path = folder_};
  std::size_t above = 0;
  const std::string* part = &target.top;
  for (const std::string& next : target.parts) {
    const auto [known, isNew] =
        folders_.try_emplace(KeyIn(above, *part), Folder{folders_.size() + 1, *part});
    place.path = tools::JoinPath(place.path, known->second.name);
    if (isNew) tools::MakeFolder(place.path);
    above = known->second.number;
    part = &next;
  }
  place.key = KeyIn(above, *part);
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

using Place = InstalledTree::Place;

class Installer {
 public:
  Installer(const Setup& setup, const std::string& folder, tools::Disk& disk,
            const InstallationObserver& observer)
      : setup_(setup), reader_(setup), tree_(folder), disk_(disk), observer_(observer) {}

  InstallationTotals Install() {
    progress_.filesTotal = setup_.plan.files.size();
    for (const PlannedFile& file : setup_.plan.files) {
      progress_.bytesTotal += SizeOf(setup_, file).value_or(0);
    }
    for (const PlannedFile& file : setup_.plan.files) {
      InstallFile(file);
      ++progress_.filesDone;
      observer_.onProgress(progress_);
    }
    return totals_;
  }

 private:
  void InstallFile(const PlannedFile& file) {
    const TargetPath target = SplitTarget(file.target);
    const Place temporary = file.packaged ? Extract(file) : Place{};
    const Place place = tree_.PlaceOf(target);
    InstalledFile installed{file, target, tree_.Below(place.path)};
    if (place.occupied && file.rule == CopyRule::Add) {
      installed.outcome = InstalledFile::Outcome::Kept;
      ++totals_.kept;
    } else {
      if (place.occupied) installed.outcome = InstalledFile::Outcome::Replaced;
      ++(place.occupied ? totals_.replaced : totals_.created);
      if (file.packaged) {
        if (place.path != temporary.path) disk_.Replace(temporary.path, place.path);
      } else {
        Write(file, place);
      }
      tree_.Occupy(place);
    }
    if (file.packaged) DeleteTemporary(file, temporary, place);
    observer_.onFile(installed);
  }

  // Unpacks the file where the runtime unpacks it. A file that was installed there is lost.
  Place Extract(const PlannedFile& file) {
    std::string name = file.stored.substr(file.stored.find_last_of("\\/") + 1);
    if (name.ends_with('.')) name.pop_back();  // as Windows does
    Place place = tree_.PlaceOf(
        {.kind = TargetPath::Kind::Folder, .top = std::string(kTemporaryFolder), .parts = {name}});
    tree_.Free(place);
    Write(file, place);
    return place;
  }

  void DeleteTemporary(const PlannedFile& file, const Place& temporary, const Place& installed) {
    if (temporary.path != installed.path) {
      disk_.Discard(temporary.path);
    } else if (file.deletesTemporary) {
      disk_.Discard(temporary.path);
      tree_.Free(temporary);
    }
  }

  void Write(const PlannedFile& file, const Place& place) {
    disk_.Discard(place.path);
    const std::unique_ptr<tools::OutputFile> output = disk_.CreateNew(place.path, place.path);
    reader_.Read(file, [&](std::string_view bytes) {
      output->Write(bytes);
      totals_.bytes += bytes.size();
      progress_.bytesDone += bytes.size();
      observer_.onProgress(progress_);
    });
    output->Close();
  }

  const Setup& setup_;
  ContentReader reader_;
  InstalledTree tree_;
  tools::Disk& disk_;
  const InstallationObserver& observer_;
  tools::Progress progress_;
  InstallationTotals totals_;
};

// An archive can promise more than any disk holds: ask before the disk is full.
void RequireRoom(const Setup& setup, const std::string& folder) {
  std::error_code failure;
  const std::filesystem::space_info space = std::filesystem::space(tools::ToPath(folder), failure);
  if (failure) return;  // the writes will tell
  std::uint64_t left = space.available;
  for (const PlannedFile& file : setup.plan.files) {
    const std::uint64_t size = SizeOf(setup, file).value_or(0);
    if (size > left) throw tools::Error("Für das Setup ist zu wenig Platz: " + folder);
    left -= size;
  }
}

}  // namespace

bool IsFreeFolder(const std::string& folder) {
  std::error_code failure;
  const std::filesystem::path path = tools::ToPath(folder);
  const auto status = std::filesystem::symlink_status(path, failure);
  if (status.type() == std::filesystem::file_type::not_found) return true;
  return std::filesystem::is_directory(path, failure) && std::filesystem::is_empty(path, failure) &&
         !failure;
}

InstallationTotals InstallInto(const Setup& setup, const std::string& folder, tools::Disk& disk,
                               const InstallationObserver& observer) {
  tools::MakeFolder(folder);
  RequireRoom(setup, folder);
  InstallationTotals totals = Installer(setup, folder, disk, observer).Install();
  // Only an empty folder is removed.
  std::error_code inUse;
  std::filesystem::remove(tools::ToPath(tools::JoinPath(folder, kTemporaryFolder)), inUse);
  return totals;
}

}  // namespace setup
