// Asks for the version that components are taken from.
#pragma once

#include "model/ComponentOperations.h"
#include "model/ModProject.h"

class QWidget;

namespace shell {

/// Lists the other versions that have components, the highest first. Returns the slot of the one
/// that the author chose; 0 when cancelled. The dialog is named `versionChoice`, its list
/// `lstVersions`. Raises tools::Error.
[[nodiscard]] model::VersionSlot ChooseVersion(const model::ModProject& project,
                                               const model::ComponentOperations& components,
                                               model::VersionSlot forVersion, QWidget* parent);

}  // namespace shell
