// What the author looks at in a finished setup: its log, and how it differs from another one.
#pragma once

#include <string>

#include "tools/Dialogs.h"

class QWidget;

namespace shell {

/// Shows the log of the setup in that folder. Raises tools::Error when it cannot be read.
void ShowBuildLog(const std::string& setupFolder, QWidget* parent);

/// Asks for the folder of another setup and shows what this one does otherwise. Raises tools::Error
/// when one of the two cannot be read.
void ShowDifferences(const std::string& setupFolder, tools::Dialogs& dialogs, QWidget* parent);

}  // namespace shell
