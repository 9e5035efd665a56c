// One look at everything a version is made of, taken before a build changes anything: which files
// its entries stand for, how much that is, and where the sources lie. The later passes of a build
// all go by it, so that archive and script agree even when the sources change meanwhile.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "build/BuildLog.h"
#include "build/BuildStatus.h"
#include "build/SourceList.h"
#include "model/ICFile.h"
#include "model/ModProject.h"

namespace build {

/// A problem found by the survey; the log gets it when the build comes to its place.
struct SurveyProblem {
  Severity severity = Severity::Error;
  SourceFault fault = SourceFault::None;  ///< None: a value that cannot be read
  std::string logText;
  std::string userText;  ///< the same for the screen (German)
};

/// An entry that takes part in the build (excluded ones do not).
struct SurveyedEntry {
  std::int32_t number = 0;
  model::ICFile file;                      ///< as it was read; empty when it could not be
  std::vector<std::string> sources;        ///< full paths, in order
  std::unique_ptr<SurveyProblem> problem;  ///< null when there is none
};

struct SurveyedComponent {
  std::int32_t slot = 0;
  std::string title;
  std::deque<SurveyedEntry> entries;
  std::unique_ptr<SurveyProblem> problem;  ///< of the component itself, null when there is none

  [[nodiscard]] Place PlaceOf(const SurveyedEntry& entry) const {
    return {slot, title, entry.number};
  }
};

/// A place that holds sources, of excluded entries too.
struct SourceLocation {
  std::string folder;   ///< full path
  std::string pattern;  ///< what a scan of its subfolders looks for; empty when none looks there

  auto operator<=>(const SourceLocation&) const = default;
};

struct Survey {
  std::vector<SurveyedComponent> components;
  std::set<SourceLocation> locations;
  std::uint64_t files = 0;
  std::uint64_t bytes = 0;
};

/// Called before each entry and each file; may raise an error to stop.
using SurveyStep = std::function<void()>;

/// Surveys the version in slot `version`. Raises tools::Error for an unsafe version text and a
/// version folder that cannot be searched, and what `step` raises.
[[nodiscard]] Survey SurveyVersion(const model::ModProject& project, std::int32_t version,
                                   const SurveyStep& step = {});

}  // namespace build
