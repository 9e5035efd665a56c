#include "console/Program.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>

#include "console/Call.h"
#include "console/JsonReport.h"
#include "console/ProductProof.h"
#include "console/TextReport.h"
#include "engine/Build.h"
#include "engine/BuildCheck.h"
#include "engine/OutputContent.h"
#include "model/ModProject.h"
#include "model/StoredOptions.h"
#include "model/TextTable.h"
#include "tools/Clock.h"
#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/files/Disk.h"
#include "tools/files/Path.h"
#include "tools/settings/SettingsStore.h"

namespace console {

namespace {

std::string StoredOutputFolder(const model::ModProject& project, model::VersionSlot version) {
  const model::StoredOptions stored(project, version);
  const std::int32_t configuration = stored.ActiveConfiguration();
  std::string folder = stored.Of(configuration).folder;
  // The folder proposed for no configuration holds those of all of them.
  const bool isKnown = configuration == 1 || configuration == 2;
  if (isKnown || folder != project.DefaultOutputFolder(configuration)) return folder;
  throw tools::Error(
      "Die aktive Konfiguration der Version ist ungültig: " + project.VersionFilePath(version) +
      " ([BuildCommon] ActiveConfig=" + std::to_string(configuration) + ")");
}

engine::BuildOptions OptionsFor(const model::ModProject& project, model::VersionSlot version,
                                const CommandLine& line, const std::string& workingFolder) {
  engine::BuildOptions options;
  options.packaged = line.zip;
  options.isConfined = line.confine;
  options.compression = line.compression;
  options.isFresh = line.fresh;
  options.threads = line.threads;
  options.includeWrapper = line.wrapper;
  options.includeRuntime = line.runtime;
  if (!line.output) {
    options.folder = StoredOutputFolder(project, version);
  } else if (!tools::TrimBlanks(*line.output).empty()) {
    // A blank folder (an unset variable of a script) must stay blank, which a build refuses.
    options.folder = tools::ResolvePath(*line.output, workingFolder);
  }
  return options;
}

ExitCode TellFindings(const std::vector<engine::BuildMessage>& findings, Report& report) {
  for (const engine::BuildMessage& finding : findings) report.OnMessage(finding);
  report.CheckEnd(findings.size());
  return findings.empty() ? ExitCode::Built : ExitCode::BuiltWithErrors;
}

/// What keeps the product from being opened, or the version from being found, is a finding too.
ExitCode Check(model::ModProject& project, const CommandLine& line,
               const Surroundings& surroundings, Report& report) {
  try {
    OpenProduct(project, tools::ResolvePath(line.product, surroundings.workingFolder));
    const model::VersionSlot version = FindVersion(project, line.version);
    const engine::BuildOptions options =
        OptionsFor(project, version, line, surroundings.workingFolder);
    return TellFindings(engine::CheckBuild(project, options, version, surroundings.programFolder,
                                           [&report] { report.ThrowIfStopped(); }),
                        report);
  } catch (const tools::Error& error) {
    engine::BuildMessage finding;
    finding.text = error.what();
    return TellFindings({finding}, report);
  }
}

std::string WhyInUse(const std::string& outputFolder) {
  const std::string other = engine::FirstOtherFile(outputFolder);
  if (other.empty()) {
    return "Im Ausgabeordner liegt ein Setup (--overwrite ersetzt es): " + outputFolder;
  }
  return "Der Ausgabeordner enthält anderes als ein Setup (--force löscht auch das): " + other;
}

/// Why a build gave no new setup.
std::string Explain(const engine::BuildSummary& summary) {
  switch (summary.outcome) {
    case engine::BuildOutcome::InvalidOutputFolder:
      return model::LoadText(model::Text::InvalidOutputFolder) + " " + summary.reason;
    case engine::BuildOutcome::OutputFolderInUse:
      return WhyInUse(summary.outputFolder);
    case engine::BuildOutcome::Incomplete:
      return model::LoadText(model::Text::BuildHadErrors) + " " + summary.reason;
    case engine::BuildOutcome::OutputFolderStuck:
      return summary.reason;
    case engine::BuildOutcome::Stopped:
      return kStoppedText;
    case engine::BuildOutcome::Finished:
      break;
  }
  return {};
}

ExitCode Conclude(const engine::BuildSummary& summary, bool strict, Report& report) {
  if (summary.outcome != engine::BuildOutcome::Finished) {
    report.Failure(Explain(summary));
    return ExitCode::Stopped;
  }
  report.Summary(summary);
  if (summary.diskFull) {
    report.Failure("Das Setup ist unvollständig: Der Datenträger ist voll.");
    return ExitCode::Stopped;
  }
  const bool isClean = summary.errors == 0 && (!strict || summary.warnings == 0);
  return isClean ? ExitCode::Built : ExitCode::BuiltWithErrors;
}

void Tell(const setup::Finding& finding, Report& report) {
  std::string place = finding.file;
  if (finding.line != 0) place += ", Zeile " + std::to_string(finding.line);
  report.OnMessage({engine::Severity::Error, finding.text, place, finding.component,
                    finding.componentTitle, finding.entry});
}

/// Proves the setup that was just built; its findings are told like the errors of the build.
ExitCode ProveBuilt(const model::ModProject& project, model::VersionSlot version,
                    const std::string& outputFolder, const tools::Clock& clock, Report& report) {
  setup::ProofResult result;
  try {
    result = ProveVersion(
        setup::OpenSetup(outputFolder), project, version, clock,
        [&report](const tools::Progress& progress) { report.OnProofProgress(progress); });
  } catch (const tools::Error& error) {
    result.findings.push_back({.text = error.what()});
  }
  for (const setup::Finding& finding : result.findings) Tell(finding, report);
  report.ProofEnd(result);
  return result.findings.empty() ? ExitCode::Built : ExitCode::BuiltWithErrors;
}

ExitCode Build(const model::ModProject& project, const engine::BuildOptions& options,
               model::VersionSlot version, const CommandLine& line,
               const Surroundings& surroundings, Report& report) {
  if (line.overwrite) report.Allow(Replaceable::EarlierSetup);
  if (line.force) report.Allow(Replaceable::Everything);
  const std::optional<std::chrono::sys_seconds> date = SourceDate(surroundings.sourceDate);
  const std::unique_ptr<tools::Clock> clock = ClockAt(date);
  std::optional<tools::FileTime> fileTime;
  if (date) {
    using std::chrono::seconds;
    fileTime = std::min(*date, std::chrono::floor<seconds>(tools::FileTime::max()));
  }
  const engine::BuildEnvironment environment{.project = project,
                                             .clock = *clock,
                                             .disk = surroundings.disk,
                                             .programFolder = surroundings.programFolder,
                                             .fileTime = fileTime};
  const engine::BuildSummary summary = engine::BuildVersion(environment, options, version, report);
  const ExitCode code = Conclude(summary, line.strict, report);
  return line.prove && code == ExitCode::Built
             ? ProveBuilt(project, version, summary.outputFolder, *clock, report)
             : code;
}

ExitCode Run(const CommandLine& line, const Surroundings& surroundings, Report& report) {
  tools::SettingsStore store(surroundings.disk);
  model::ModProject project(store);
  if (line.check) return Check(project, line, surroundings, report);
  OpenProduct(project, tools::ResolvePath(line.product, surroundings.workingFolder));
  if (line.list) {
    const tools::SettingsStore::Session session(store);
    report.Listing(project);
    return ExitCode::Built;
  }
  const model::VersionSlot version = FindVersion(project, line.version);
  const engine::BuildOptions options =
      OptionsFor(project, version, line, surroundings.workingFolder);
  return Build(project, options, version, line, surroundings, report);
}

}  // namespace

ExitCode RunProgram(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
  const Streams& streams = surroundings.streams;
  ExitCode exitCode = ExitCode::Built;
  const std::optional<CommandLine> line =
      ParseCommandLine(arguments, streams.output, streams.errors, exitCode);
  if (!line) return exitCode;
  return RunReported<JsonReport, TextReport>(
      *line, surroundings, [&](Report& report) { return Run(*line, surroundings, report); });
}

}  // namespace console
