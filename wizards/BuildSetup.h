// The build as the desktop runs it: with the wizard's text values, a busy notice, and message boxes
// for what the author must know or decide.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "engine/BuildObserver.h"
#include "model/ModProject.h"
#include "model/ModProjectOperations.h"
#include "tools/Clock.h"
#include "tools/Dialogs.h"
#include "tools/desktop/wizard/WizardDriver.h"
#include "tools/files/Disk.h"

namespace wizards {

/// What the wizards work with. The references must outlive them.
struct BuildServices {
  const model::ModProject& project;
  model::ModProjectOperations& operations;
  tools::Dialogs& dialogs;
  const tools::Clock& clock;
  tools::Disk& disk;
  std::string programFolder;  ///< holds the setup wrapper and the runtime's installer
  /// Whether the program is to end: a running build then stops and removes what it made.
  std::function<bool()> isEndWanted = [] { return false; };
};

/// Converts "folder", "makezip" (packaged when exactly 1), "includeexe" and "includetessel" (on
/// when not 0); an absent value counts as empty. Raises tools::Error for a number out of range.
[[nodiscard]] engine::BuildOptions ReadBuildOptions(const tools::WizardDataStore& settings);

/// Builds the version in slot `versionIndex`. A build that was refused leaves the busy notice; its
/// owner withdraws it. Raises tools::Error when the build cannot run or end at all; the notice is
/// gone then.
void BuildSetup(const BuildServices& services, const tools::WizardDataStore& settings,
                std::int32_t versionIndex);

}  // namespace wizards
