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

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "engine/BuildObserver.h"
#include "model/ModProject.h"
#include "tools/Clock.h"
#include "tools/Versions.h"
#include "tools/archive/ArchiveWriter.h"
#include "tools/files/Disk.h"

namespace engine {

/// What a build works with. The references must outlive the call.
struct BuildEnvironment {
  const model::ModProject& project;
  const tools::Clock& clock;
  tools::Disk& disk;
  std::string programFolder;  ///< holds Wrapper.exe and InstallTessel.msi
  tools::Version toolVersion = tools::ToolVersion();
  /// The time of every file of the setup; without one files keep the times of their sources.
  std::optional<tools::FileTime> fileTime{};
};

/// How a build ended.
enum class BuildOutcome {
  Finished,             ///< reached its end; problems are in the log
  InvalidOutputFolder,  ///< refused: the output folder is invalid
  OutputFolderInUse,    ///< refused: it holds files and the observer kept them
  OutputFolderStuck,    ///< ended early: some of its old content could not be removed
  Incomplete,           ///< ended early: disk full or archive failed, and the old setup was kept
  Stopped,              ///< ended early: the observer wanted it
};

/// Where a build's time went.
struct BuildTimes {
  using Seconds = std::chrono::duration<double>;

  Seconds survey{};   ///< finding the sources
  Seconds packing{};  ///< storing them: archive or tree
  Seconds script{};
  Seconds total{};  ///< the whole build, and not only these three
};

struct BuildSummary {
  BuildOutcome outcome = BuildOutcome::Finished;
  std::string reason;  ///< why the build was refused or ended early, beyond the outcome (German)
  std::string outputFolder;
  tools::ArchiveTotals stored;  ///< the files; not packaged, the copies count as what came out
  BuildTimes times{};
  std::int32_t warnings = 0;
  std::int32_t errors = 0;
  bool diskFull = false;  ///< some failure came from a full disk
};

/// The outcome of one build, for showing it afterwards.
struct BuildResult {
  /// How many messages are kept; the log holds all of them.
  static constexpr std::size_t kMostMessages = 10'000;

  model::VersionSlot version = 0;  ///< slot
  BuildSummary summary;
  std::string failure;  ///< why the build could not run or end at all; empty for any other end
  std::vector<BuildMessage> messages;
  std::uint64_t furtherMessages = 0;  ///< those that are not kept
  std::chrono::milliseconds duration{};
};

/// Builds the version in slot `version`. Problems with single files are logged and the build goes
/// on; the observer gets them as they happen.
///
/// The setup is made in a hidden folder inside the output folder and takes the old content's place
/// when it is whole: archive or tree, script, programs and log. A setup that lacks files because
/// the disk is full or the archive failed moves in only where there is no old setup to replace.
/// Whenever the build does not finish, the output folder holds what it held before. The build holds
/// a tools::FolderClaim on the output folder from its first look at it to its end.
///
/// Raises tools::Error, after tidying up, when the build cannot run or end at all: settings that
/// cannot be read or are out of range, a product title that no file name can hold, an unsafe
/// version text, a version without a usable file, an output folder that another build holds, an
/// output folder, script or log that cannot be written.
[[nodiscard]] BuildSummary BuildVersion(const BuildEnvironment& environment,
                                        const BuildOptions& options, model::VersionSlot version,
                                        BuildObserver& observer);

}  // namespace engine
