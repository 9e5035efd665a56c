// Building a product of somebody else: it must not reach beyond its own folder.
#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "model/ModProject.h"

namespace engine {

/// Raises tools::Error naming the first path that lies outside the product's folder once links are
/// followed: the output folder (none when empty), a settings file of the version, or one of
/// `sourceFolders`.
void RequireConfined(const model::ModProject& project, std::int32_t version,
                     const std::string& outputFolder, const std::set<std::string>& sourceFolders);

}  // namespace engine
