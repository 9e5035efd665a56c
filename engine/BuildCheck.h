// Looks for what would go wrong in a build, and writes nothing at all.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/BuildObserver.h"
#include "engine/Survey.h"
#include "model/ModProject.h"

namespace engine {

/// The problems that a build of the version in slot `versionIndex` with these options would have,
/// and damage in its settings; general ones first, then by component and entry. The texts are
/// German and name both places where two are concerned. When nothing is found, a build has no
/// warning and no error, unless something changes meanwhile. `programFolder` is that of the build.
/// Raises only tools::Stopped, from `step`.
[[nodiscard]] std::vector<BuildMessage> CheckBuild(const model::ModProject& project,
                                                   const BuildOptions& options,
                                                   model::VersionSlot versionIndex,
                                                   const std::string& programFolder,
                                                   const SurveyStep& step = {});

}  // namespace engine
