// The build: turns one version of the open product into a setup in an output folder.
//
// Output folder afterwards, for a product titled T:
//   T.zip                   all files as 1.ext, 2.ext, ... (packaged), or
//   <folder>\<subfolder>\   the files under their own names (not packaged)
//   T.install               the installation script (InstallScript.h)
//   Setup.exe               the setup wrapper, on request
//   InstallTessel.msi       the runtime's installer, on request
//   build.log               the log (BuildLog.h)
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/BuildSettings.h"
#include "engine/BuildStatus.h"
#include "model/ModProject.h"
#include "tools/Clock.h"
#include "tools/Dialogs.h"
#include "tools/Versions.h"
#include "tools/files/Disk.h"

namespace engine {

/// What a build works with. The references must outlive the call.
struct BuildEnvironment {
  const model::ModProject& project;
  tools::Dialogs& dialogs;
  const tools::Clock& clock;
  tools::Disk& disk;
  BuildStatus& status;
  std::string programFolder;  ///< holds Wrapper.exe and InstallTessel.msi
  tools::Version toolVersion = tools::ToolVersion();
};

/// Builds the version in slot `versionIndex`. Problems with single files are logged and the build
/// goes on; the status observer gets them as they happen, and how the build ended.
///
/// The setup is made in a hidden folder inside the output folder and takes the old content's place
/// when it is whole: archive or tree, script, programs and log. A setup that lacks files because
/// the disk is full or the archive failed only moves in where it replaces nothing.
///
/// Raises tools::Error, after tidying up, when the build cannot run or end at all: settings that
/// cannot be read or are out of range, a product title that no file name can hold, an unsafe
/// version text, a version without a usable file, a full or read-only disk for the output folder,
/// the script or the log. Errors of the status observer pass through. In each of these cases the
/// output folder holds what it held before.
void BuildSetup(const BuildEnvironment& environment, const BuildSettings& settings,
                std::int32_t versionIndex);

/// True when `title` followed by an extension would not name a file in the output folder itself on
/// this machine: it holds a separator or control characters, or is "." or "..".
[[nodiscard]] bool IsDangerousFileTitle(std::string_view title);

}  // namespace engine
