// The build as the desktop runs it: with the wizard's text values, a busy notice, and message boxes
// for what the author must know or decide.
#pragma once

#include <functional>
#include <string>

#include "engine/Build.h"
#include "engine/BuildObserver.h"
#include "findings/FindingsList.h"
#include "model/ModProject.h"
#include "model/ModProjectOperations.h"
#include "tools/Clock.h"
#include "tools/Dialogs.h"
#include "tools/desktop/wizard/WizardDriver.h"
#include "tools/files/Disk.h"

namespace wizards {

class LastBuilds;

/// What the wizards work with. The references must outlive them.
struct BuildServices {
  const model::ModProject& project;
  model::ModProjectOperations& operations;
  tools::Dialogs& dialogs;
  const tools::Clock& clock;
  tools::Disk& disk;
  LastBuilds& lastBuilds;
  std::string programFolder;  ///< holds the setup wrapper and the runtime's installer
  /// Whether the program is to end: a running build then stops and removes what it made.
  std::function<bool()> isEndWanted = [] { return false; };
  /// Gets what each build came to, when its messages have been read.
  std::function<void(const engine::BuildResult&)> onBuilt = [](const engine::BuildResult&) {};
  /// Opens the place of a finding, when the wizard that showed it is closed.
  std::function<void(model::VersionSlot version, const findings::ChosenPlace& place)> showPlace =
      [](model::VersionSlot, const findings::ChosenPlace&) {};
};

/// Converts "folder", "makezip" (packaged when exactly 1), "includeexe" and "includetessel" (on
/// when not 0) and "compression" ("fast" or "small", else normal); an absent value counts as empty.
/// Raises tools::Error for a number out of range.
[[nodiscard]] engine::BuildOptions ReadBuildOptions(const tools::WizardDataStore& settings);

/// What becomes of the busy notice of a build that was refused.
enum class AfterRefusal {
  LeaveNotice,  ///< it stays until the window it belongs to goes
  WithdrawNotice
};

/// Builds the version in slot `versionIndex`. Raises tools::Error when the build cannot run or end
/// at all; the notice is gone then.
void BuildSetup(const BuildServices& services, const tools::WizardDataStore& settings,
                model::VersionSlot versionIndex, AfterRefusal afterRefusal);

}  // namespace wizards
