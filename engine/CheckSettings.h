// The part of the check that looks at the settings files themselves, and at values in them that no
// line of a script or log can hold.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "engine/BuildLog.h"
#include "engine/Findings.h"
#include "engine/Survey.h"
#include "model/ModProject.h"

namespace engine {

/// Reports damage in the files of the product and of the version, and numbers in them that are out
/// of range.
void CheckProductSettings(const model::ModProject& project, model::VersionSlot version,
                          Findings& findings);

/// Reports damage in the file of a component, numbers in it that are out of range, and sections
/// beyond its number of entries.
void CheckComponentSettings(const model::ModProject& project, model::VersionSlot version,
                            model::ComponentSlot slot, Findings& findings);

/// Calls `report` for each value that a build would write into script or log and that holds a
/// control character, with a sentence that names file, section and key. Raises tools::Error for
/// settings that cannot be read.
void FindControlCharacters(
    const model::ModProject& project, model::VersionSlot version, const Survey& survey,
    const std::function<void(const std::string& text, const Place& place)>& report);

}  // namespace engine
