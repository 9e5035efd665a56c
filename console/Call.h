// What the calls of both programs go through: main, the product, version and date that they name,
// the report they ask for, and what ends them early.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "console/Program.h"
#include "model/ModProject.h"
#include "tools/Clock.h"
#include "tools/Error.h"
#include "tools/Progress.h"

namespace console {

/// Thrown where a call turns out to be one that cannot be carried out.
struct BadCall {
  std::string text;
};

/// Opens the product file. Raises BadCall when it is missing or none.
void OpenProduct(model::ModProject& project, const std::string& path);

/// The slot of a version. Raises BadCall that names the versions there are.
[[nodiscard]] model::VersionSlot FindVersion(const model::ModProject& project,
                                             const std::string& wanted);

/// The date that the environment sets for all that a setup holds (SOURCE_DATE_EPOCH):
/// `text` counts the seconds since 1970-01-01 UTC; nothing when it is empty. Raises BadCall for
/// what is no date.
[[nodiscard]] std::optional<std::chrono::sys_seconds> SourceDate(const std::string& text);

/// The clock that stands at the date; the system's without one.
[[nodiscard]] std::unique_ptr<tools::Clock> ClockAt(std::optional<std::chrono::sys_seconds> date);

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

/// Runs `run` with the arguments and surroundings of this process; returns its exit status. When
/// not all of what was written to the streams could be, that is Stopped, and a line on standard
/// error says so in the name of the program, `name`.
[[nodiscard]] int RunMain(int argc, char** argv, const char* name,
                          ExitCode (*run)(const std::vector<std::string>&, const Surroundings&));

}  // namespace console
