// The part of the check that looks at the settings files themselves.
#pragma once

#include <cstdint>

#include "engine/Findings.h"
#include "model/ModProject.h"

namespace engine {

/// Reports damage in the files of the product and of the version, and numbers in them that are out
/// of range.
void CheckProductSettings(const model::ModProject& project, std::int32_t version,
                          Findings& findings);

/// Reports damage in the file of a component, numbers in it that are out of range, and sections
/// that its number of entries leaves out.
void CheckComponentSettings(const model::ModProject& project, std::int32_t version,
                            std::int32_t slot, Findings& findings);

}  // namespace engine
