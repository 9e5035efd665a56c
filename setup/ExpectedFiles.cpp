#include "setup/ExpectedFiles.h"

#include <algorithm>

#include "setup/Folders.h"
#include "tools/Text.h"
#include "tools/files/Path.h"

namespace setup {

namespace {

/// The plan's files by their targets.
class Targets {
 public:
  explicit Targets(const Plan& plan) : files_(plan.files), taken_(plan.files.size()) {
    byTarget_.resize(files_.size());
    for (std::uint32_t i = 0; i < byTarget_.size(); ++i) byTarget_[i] = i;
    std::ranges::stable_sort(byTarget_, {}, [this](std::uint32_t i) { return TargetOf(i); });
  }

  /// The next file with this target that nobody took.
  [[nodiscard]] std::uint32_t Take(std::string_view target) {
    auto found = std::ranges::lower_bound(byTarget_, target, {},
                                          [this](std::uint32_t i) { return TargetOf(i); });
    while (found != byTarget_.end() && TargetOf(*found) == target && taken_[*found]) ++found;
    if (found == byTarget_.end() || TargetOf(*found) != target) return ExpectedFile::kNotPlanned;
    taken_[*found] = true;
    return *found;
  }

 private:
  [[nodiscard]] std::string_view TargetOf(std::uint32_t i) const { return files_[i].target; }

  const std::vector<PlannedFile>& files_;
  std::vector<std::uint32_t> byTarget_;
  std::vector<bool> taken_;
};

}  // namespace

std::string ExpectedTarget(const ExpectedEntry& entry, const std::string& source) {
  std::string target = entry.targetSubFolder;
  if (entry.targetFolder != kCustomFolder) {
    const std::string_view folder = FolderName(entry.targetFolder);
    target = folder.empty() ? std::string() : "%" + std::string(folder) + "%";
    if (!entry.targetSubFolder.empty()) target += "\\" + entry.targetSubFolder;
  }
  return target + "\\" +
         (entry.targetName.empty() ? tools::FileNamePart(source) : entry.targetName);
}

CopyRule ExpectedRule(const ExpectedEntry& entry, const std::string& source) {
  if (!entry.overwrites) return CopyRule::Add;
  const std::string extension = tools::LowerCase(tools::Extension(source));
  const bool program = extension == "exe" || extension == "dll" || extension == "ocx";
  return program ? CopyRule::ReplaceSafely : CopyRule::Copy;
}

std::vector<ExpectedFile> MatchFiles(const ExpectedSetup& expected, const Plan& plan) {
  Targets targets(plan);
  std::vector<ExpectedFile> files;
  for (std::uint32_t e = 0; e < expected.entries.size(); ++e) {
    const ExpectedEntry& entry = expected.entries[e];
    for (std::uint32_t s = 0; s < entry.sources.size(); ++s) {
      files.push_back({e, s, targets.Take(ExpectedTarget(entry, entry.sources[s]))});
    }
  }
  return files;
}

}  // namespace setup
