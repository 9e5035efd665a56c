#include "console/setup/SetupProgram.h"

#include <memory>
#include <optional>

#include "console/Call.h"
#include "console/ProductProof.h"
#include "console/setup/JsonSetupReport.h"
#include "console/setup/SetupCommandLine.h"
#include "console/setup/TextSetupReport.h"
#include "setup/Comparison.h"
#include "setup/Setup.h"
#include "setup/TestInstallation.h"
#include "tools/Error.h"
#include "tools/files/Disk.h"
#include "tools/files/Path.h"
#include "tools/settings/SettingsStore.h"

namespace console {

namespace {

using Command = SetupCommandLine::Command;

/// Opens the setup that the call names.
setup::Setup Open(const std::string& path) {
  try {
    return setup::OpenSetup(path);
  } catch (const tools::Error& error) {
    throw BadCall{error.what()};
  }
}

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
  setup::Setup setup = Open(path);
  FindMissingFiles(setup);
  report.Listing(setup);
  return Conclude(setup.findings, setup.furtherFindings, report);
}

ExitCode Unpack(const std::string& path, const std::string& folder, tools::Disk& disk,
                SetupReport& report) {
  setup::Setup setup = Open(path);
  FindMissingFiles(setup);
  // The runtime would stop in the middle: no place to begin.
  if (!setup.findings.empty()) return Conclude(setup.findings, setup.furtherFindings, report);
  if (!setup::IsFreeFolder(folder)) {
    report.Failure("Der Ordner der Probe ist nicht leer: " + folder);
    return ExitCode::Stopped;
  }
  const setup::InstallationTotals totals =
      setup::InstallInto(setup, folder, disk,
                         {[&](const setup::InstalledFile& file) { report.Installed(file); },
                          [&](const tools::Progress& progress) { report.OnProgress(progress); }});
  report.InstallationEnd(totals, folder);
  return ExitCode::Built;
}

ExitCode Prove(const std::string& path, const SetupCommandLine& line,
               const Surroundings& surroundings, SetupReport& report) {
  const std::unique_ptr<tools::Clock> clock = ClockAt(SourceDate(surroundings.sourceDate));
  const setup::Setup setup = Open(path);
  tools::SettingsStore store(surroundings.disk);
  model::ModProject project(store);
  OpenProduct(project, tools::ResolvePath(line.product, surroundings.workingFolder));
  const model::VersionSlot version = FindVersion(project, line.version);
  const setup::ProofResult result =
      ProveVersion(setup, project, version, *clock,
                   [&](const tools::Progress& progress) { report.OnProgress(progress); });
  const ExitCode code = Conclude(result.findings, result.furtherFindings, report);
  report.ProofEnd(result);
  return code;
}

ExitCode Compare(const std::string& oldPath, const std::string& newPath, SetupReport& report) {
  const auto onProgress = [&](const tools::Progress& progress) { report.OnProgress(progress); };
  setup::Setup before = Open(oldPath);
  const setup::SetupContents oldContents = setup::TakeContents(before, onProgress);
  setup::Setup after = Open(newPath);
  const setup::SetupContents newContents = setup::TakeContents(after, onProgress);
  const setup::SetupComparison comparison = setup::CompareSetups(oldContents, newContents);
  report.Differences(comparison);
  std::vector<setup::Finding> findings = before.findings;
  findings.insert(findings.end(), after.findings.begin(), after.findings.end());
  const ExitCode code = Conclude(findings, before.furtherFindings + after.furtherFindings, report);
  return comparison.differences.empty() ? code : ExitCode::BuiltWithErrors;
}

ExitCode Run(const SetupCommandLine& line, const Surroundings& surroundings, SetupReport& report) {
  const std::string path = tools::ResolvePath(line.setup, surroundings.workingFolder);
  switch (line.command) {
    case Command::List:
      return List(path, report);
    case Command::Compare:
      return Compare(path, tools::ResolvePath(line.newSetup, surroundings.workingFolder), report);
    case Command::Prove:
      return Prove(path, line, surroundings, report);
    case Command::Unpack:
      return Unpack(path, tools::ResolvePath(line.into, surroundings.workingFolder),
                    surroundings.disk, report);
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
  return RunReported<JsonSetupReport, TextSetupReport>(
      *line, surroundings, [&](SetupReport& report) { return Run(*line, surroundings, report); });
}

}  // namespace console
