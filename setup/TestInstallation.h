// Installs a setup into a folder instead of the places it is meant for, on any machine.
//
//   %Name%\a\b   FOLDER/Name/a/b     (TempPath is gone at the end unless a file is there)
//   C:\a         FOLDER/C/a
//   \a           FOLDER/root/a
//
// Nothing is written outside FOLDER, whatever the setup holds: ".." is taken out of targets, files
// are only ever created anew, and links are not made.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "setup/Setup.h"
#include "setup/TargetPath.h"
#include "tools/Progress.h"
#include "tools/files/Disk.h"

namespace setup {

/// What became of one file.
struct InstalledFile {
  enum class Outcome {
    New,       ///< nothing was there
    Replaced,  ///< an earlier file of the setup was
    Kept,      ///< an earlier file of the setup is still there: the rule is Add
  };
  const PlannedFile& planned;
  const TargetPath& target;
  std::string place;  ///< path below FOLDER with "/"
  Outcome outcome = Outcome::New;

  /// True when the target says something else than where the file went.
  [[nodiscard]] bool IsRedirected() const {
    return target.kind != TargetPath::Kind::Folder || target.climbs;
  }
};

struct InstallationTotals {
  std::uint64_t created = 0;
  std::uint64_t replaced = 0;
  std::uint64_t kept = 0;
  std::uint64_t bytes = 0;  ///< written, also those of files that were replaced again
};

/// May raise an error to stop; what was installed until then stays.
struct InstallationObserver {
  std::function<void(const InstalledFile&)> onFile;
  std::function<void(const tools::Progress&)> onProgress;
};

/// True when a test installation may go there: an empty folder, or nothing.
[[nodiscard]] bool IsFreeFolder(const std::string& folder);

/// Carries out the setup's plan, whose script must have no findings, in a free folder. Raises
/// tools::Error that names the file: missing, damaged, cannot be written; too little room.
[[nodiscard]] InstallationTotals InstallInto(const Setup& setup, const std::string& folder,
                                             tools::Disk& disk,
                                             const InstallationObserver& observer);

}  // namespace setup
