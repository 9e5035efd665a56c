// One look at everything a version is made of, taken before a build changes anything: which files
// its entries stand for, how much that is, and where the sources lie. The later passes of a build
// all go by it, so that archive and script agree even when the sources change meanwhile.
#pragma once

#include <cstdint>
#include <deque>
#include <set>
#include <string>
#include <vector>

#include "engine/BuildLog.h"
#include "engine/SourceList.h"
#include "model/ICFile.h"
#include "model/ModProject.h"

namespace engine {

/// An entry that takes part in the build (excluded ones do not).
struct SurveyedEntry {
  std::int32_t number = 0;
  /// Entries that the file has no section for are all alike: this one stands for those up to
  /// `last`.
  std::int32_t last = 0;
  bool hasSection = true;
  model::ICFile file;                ///< as it was read; empty when it could not be
  std::vector<std::string> sources;  ///< full paths, in order
  std::vector<SurveyProblem> problems;
};

struct SurveyedComponent {
  model::ComponentSlot slot = 0;
  std::string title;
  bool isInstalled = true;  ///< false: its file is of no use, and the script does not name it
  std::deque<SurveyedEntry> entries;
  std::vector<SurveyProblem> problems;  ///< of the component itself

  [[nodiscard]] Place PlaceOf(const SurveyedEntry& entry) const {
    return {slot, title, entry.number};
  }
};

struct Survey {
  std::vector<SurveyedComponent> components;  ///< slots that are free are not among them
  std::set<std::string> sourceFolders;        ///< full paths; those of excluded entries too
  /// Components whose files are there but cannot be read: what they hold is not known.
  std::vector<BuildMessage> unread;
  std::uint64_t files = 0;
  std::uint64_t bytes = 0;
};

/// Surveys the version in slot `version`, passing over `outputFolder` in scans. Raises tools::Error
/// for an unsafe version text, a version folder that cannot be searched, a version file that is
/// missing, cannot be read or holds no settings, and what `step` raises.
[[nodiscard]] Survey SurveyVersion(const model::ModProject& project, model::VersionSlot version,
                                   const std::string& outputFolder, const SurveyStep& step = {});

/// The folders that the sources of the version lie in, without a look at the sources themselves: a
/// scan's links are not known. Raises tools::Error where settings cannot be read.
[[nodiscard]] std::set<std::string> SourceFoldersOf(const model::ModProject& project,
                                                    model::VersionSlot version);

}  // namespace engine
