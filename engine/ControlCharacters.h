// Values that no line of a script or log can hold.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "engine/BuildLog.h"
#include "engine/Survey.h"
#include "model/ModProject.h"

namespace engine {

/// Calls `report` for each value that a build would write into script or log and that holds a
/// control character, with a sentence that names file, section and key. Raises tools::Error for
/// settings that cannot be read.
void FindControlCharacters(
    const model::ModProject& project, std::int32_t version, const Survey& survey,
    const std::function<void(const std::string& text, const Place& place)>& report);

}  // namespace engine
