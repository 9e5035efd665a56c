// The headless builder as a function of its arguments and surroundings.
#pragma once

#include <string>
#include <vector>

#include "console/CommandLine.h"
#include "console/Report.h"
#include "tools/files/Disk.h"

namespace console {

/// What a call takes from the system around it.
struct Surroundings {
  Streams streams;
  std::string workingFolder;  ///< relative paths on the command line are taken from it
  std::string programFolder;  ///< holds Wrapper.exe and InstallTessel.msi
  tools::Disk& disk;
  Report::InterruptTest interrupted = [] { return false; };
  /// The environment's SOURCE_DATE_EPOCH: the date of everything in a setup, as seconds since
  /// 1970-01-01 UTC; empty: today, and the times of the sources.
  std::string sourceDate{};
};

/// Runs one call and returns its exit code. Never raises tools::Error.
[[nodiscard]] ExitCode RunProgram(const std::vector<std::string>& arguments,
                                  const Surroundings& surroundings);

}  // namespace console
