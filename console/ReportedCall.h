// The frame around a call of either program: the report it asks for, and what ends it early.
#pragma once

#include "console/ProductVersion.h"
#include "console/Program.h"
#include "tools/Error.h"
#include "tools/Progress.h"

namespace console {

/// What is said of a call that the user stopped.
inline constexpr const char* kStoppedText = "Abgebrochen.";

/// Runs `call` with a report; what ends it early is told there and becomes an exit code.
template <typename ReportType, typename Call>
[[nodiscard]] ExitCode RunToItsEnd(ReportType& report, const Call& call) {
  try {
    return call(report);
  } catch (const tools::Stopped&) {
    report.Failure(kStoppedText);
  } catch (const BadCall& bad) {
    report.Failure(bad.text);
    return ExitCode::BadCall;
  } catch (const tools::Error& error) {
    report.Failure(error.what());
  }
  return ExitCode::Stopped;
}

/// Runs a call with the report that its command line asks for.
template <typename Json, typename Text, typename Line, typename Call>
[[nodiscard]] ExitCode RunReported(const Line& line, const Surroundings& surroundings,
                                   const Call& call) {
  if (line.json) {
    Json report(surroundings.streams, surroundings.interrupted, line.quiet);
    return RunToItsEnd(report, call);
  }
  Text report(surroundings.streams, surroundings.interrupted, line.quiet);
  return RunToItsEnd(report, call);
}

}  // namespace console
