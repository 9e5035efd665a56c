// The files of one version: whether its own is of use, and which component files there are.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/ModProject.h"

namespace engine {

/// Raises tools::Error naming the file of the version when it is missing, is a folder, cannot be
/// read or holds no settings (zero bytes, for example, or nothing but NULs after a loss of power).
void RequireVersionFile(const model::ModProject& project, std::int32_t version);

/// The slots, ascending, whose component file (or something in its place) is there, beyond the
/// version's count too. Raises tools::Error when the version's folder cannot be searched.
[[nodiscard]] std::vector<std::int32_t> ComponentFileSlots(const model::ModProject& project,
                                                           std::int32_t version);

}  // namespace engine
