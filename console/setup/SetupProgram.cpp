#include "console/setup/SetupProgram.h"

#include <memory>
#include <optional>

#include "console/setup/JsonSetupReport.h"
#include "console/setup/SetupCommandLine.h"
#include "console/setup/TextSetupReport.h"
#include "setup/Setup.h"
#include "tools/Error.h"
#include "tools/Path.h"

namespace console {

namespace {

using Command = SetupCommandLine::Command;

/// Tells the findings; the exit code that they ask for.
ExitCode Conclude(const std::vector<setup::Finding>& findings, std::size_t further,
                  SetupReport& report) {
  for (const setup::Finding& finding : findings) report.OnFinding(finding);
  report.FindingsEnd(findings.size() + further);
  return findings.empty() ? ExitCode::Built : ExitCode::BuiltWithErrors;
}

/// Findings for files that the setup does not hold.
void FindMissingFiles(setup::Setup& setup) {
  for (const setup::PlannedFile& file : setup.plan.files) {
    if (file.stored.empty() || setup::SizeOf(setup, file)) continue;
    if (setup.findings.size() == setup::kKeptFindings) {
      ++setup.furtherFindings;
      continue;
    }
    setup.findings.push_back({.file = setup.scriptPath,
                              .line = file.line,
                              .text = "Das Setup enthält diese Datei nicht: " + file.stored,
                              .componentTitle = setup.plan.components[file.component]});
  }
}

ExitCode List(const std::string& path, SetupReport& report) {
  setup::Setup setup = setup::OpenSetup(path);
  FindMissingFiles(setup);
  report.Listing(setup);
  return Conclude(setup.findings, setup.furtherFindings, report);
}

ExitCode Run(const SetupCommandLine& line, const Surroundings& surroundings, SetupReport& report) {
  const std::string path = tools::ResolvePath(line.setup, surroundings.workingFolder);
  switch (line.command) {
    case Command::List:
      return List(path, report);
  }
  return ExitCode::BadCall;
}

}  // namespace

ExitCode RunSetupProgram(const std::vector<std::string>& arguments,
                         const Surroundings& surroundings) {
  const Streams& streams = surroundings.streams;
  ExitCode exitCode = ExitCode::Built;
  const std::optional<SetupCommandLine> line =
      ParseSetupCommandLine(arguments, streams.output, streams.errors, exitCode);
  if (!line) return exitCode;

  std::unique_ptr<SetupReport> report;
  if (line->json) {
    report = std::make_unique<JsonSetupReport>(streams, surroundings.interrupted, line->quiet);
  } else {
    report = std::make_unique<TextSetupReport>(streams, surroundings.interrupted, line->quiet);
  }
  try {
    return Run(*line, surroundings, *report);
  } catch (const Interrupted&) {
    report->Failure("Abgebrochen.");
    return ExitCode::Stopped;
  } catch (const tools::Error& error) {
    report->Failure(error.what());
  }
  return ExitCode::BadCall;
}

}  // namespace console
