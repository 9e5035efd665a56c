// The pass of a build that writes the installation script of what was stored.
#pragma once

#include <string>

#include "engine/InstallScript.h"
#include "engine/StoredNameMap.h"
#include "engine/Survey.h"
#include "tools/files/Disk.h"

namespace engine {

/// Creates or replaces the script at `path`. Files without a stored name get no statement. The text
/// goes to disk as it grows: a large product's script is larger than the rest of a build's memory.
/// Raises tools::Error; the path is then as it was.
void WriteInstallScript(tools::Disk& disk, const std::string& path, ScriptHead head, bool packaged,
                        const Survey& survey, const StoredNameMap& names);

}  // namespace engine
