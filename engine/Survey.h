// One look at everything a version is made of, taken before a build changes anything: which files
// its entries stand for, how much that is, and where the sources lie. The later passes of a build
// all go by it, so that archive and script agree even when the sources change meanwhile.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "engine/BuildLog.h"
#include "engine/SourceList.h"
#include "engine/SurveyedEntry.h"
#include "model/ModProject.h"
#include "tools/Progress.h"

namespace engine {

/// A value of an entry that holds a control character.
struct UnfitValue {
  std::int32_t entry = 0;  ///< its number
  std::string entryId;
  std::string_view key;
};

struct SurveyedComponent {
  model::ComponentSlot slot = 0;
  std::string title;
  bool isInstalled = true;  ///< false: its file is of no use, and the script does not name it
  std::deque<SurveyedEntry> entries;
  std::vector<SurveyProblem> problems;  ///< of the component itself
  std::vector<UnfitValue> unfitValues;  ///< of the entries, by their order

  [[nodiscard]] Place PlaceOf(const SurveyedEntry& entry) const {
    return {slot, title, entry.Number(), entry.ID()};
  }
};

struct Survey {
  std::deque<SurveyedComponent> components;  ///< slots that are free are not among them
  std::set<std::string> sourceFolders;       ///< full paths; those of excluded entries too
  /// Components whose files are there but cannot be read: what they hold is not known.
  std::vector<BuildMessage> unread;
  std::uint64_t files = 0;
  std::uint64_t bytes = 0;
};

/// Called often during a survey with the files found so far and the bytes of those looked at,
/// without totals; may raise an error to stop. While a scan lists a folder, each entry of it
/// counts as a file found.
using SurveyWatch = std::function<void(const tools::Progress& found)>;

/// Surveys the version in slot `version`, passing over `outputFolder` in scans. Raises tools::Error
/// for an unsafe version text, a version folder that cannot be searched, a version file that is
/// missing, cannot be read or holds no settings, and what `watch` raises.
[[nodiscard]] Survey SurveyVersion(const model::ModProject& project, model::VersionSlot version,
                                   const std::string& outputFolder, const SurveyWatch& watch = {});

/// The folders that the sources of the version lie in, without a look at the sources themselves: a
/// scan's links are not known. Raises tools::Error where settings cannot be read.
[[nodiscard]] std::set<std::string> SourceFoldersOf(const model::ModProject& project,
                                                    model::VersionSlot version);

}  // namespace engine
