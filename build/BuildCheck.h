// Looks for what would go wrong in a build, and writes nothing at all.
#pragma once

#include <cstdint>
#include <vector>

#include "build/BuildSettings.h"
#include "build/BuildStatus.h"
#include "build/Survey.h"
#include "model/ModProject.h"

namespace build {

/// The problems that a build of the version in slot `versionIndex` with these settings would have,
/// general ones first, then by component and entry: an output folder that would be refused; a
/// product title that cannot be a file name; values that break a line of the installation script;
/// missing sources and folder scans that find nothing; targets with an unknown folder number; files
/// that meet at one target or under one stored name. The texts are German and name both places
/// where two are concerned. Raises tools::Error for settings out of range and an unsafe version
/// text, and what `step` raises.
[[nodiscard]] std::vector<BuildMessage> CheckBuild(const model::ModProject& project,
                                                   const BuildSettings& settings,
                                                   std::int32_t versionIndex,
                                                   const SurveyStep& step = {});

}  // namespace build
