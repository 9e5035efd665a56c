#include "console/ProductProof.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <thread>
#include <utility>

#include "model/StoredOptions.h"
#include "model/TextTable.h"
#include "tools/StandardTexts.h"
#include "tools/Text.h"

namespace console {

namespace {

setup::ExpectedEntry ExpectedEntryOf(const engine::SurveyedComponent& component,
                                     const engine::SurveyedEntry& entry) {
  const model::ICFile file = entry.File();
  std::vector<std::string> sources;
  for (const std::string_view path : entry.Sources()) sources.emplace_back(path);
  return {.component = component.slot,
          .componentTitle = component.title,
          .entry = entry.Number(),
          .targetFolder = file.TargetFolder,
          .targetSubFolder = file.TargetSubFolder,
          .targetName = file.TargetName,
          .overwrites = file.Overwrite != 0,
          .registersItself = file.SelfRegisterDLL == 1,
          .pathReminder = file.RegisterPath == 1,
          .vital = file.Vital != 0,
          .sources = std::move(sources)};
}

// What kept the version from being surveyed whole. Warnings are no fault of the setup.
std::vector<setup::Finding> ProblemsOf(const engine::Survey& survey) {
  std::vector<setup::Finding> findings;
  for (const engine::BuildMessage& unread : survey.unread) {
    findings.push_back({.text = unread.text, .component = unread.component});
  }
  const auto add = [&](std::span<const engine::SurveyProblem> problems,
                       const engine::SurveyedComponent& component, std::int32_t entry) {
    for (const engine::SurveyProblem& problem : problems) {
      if (problem.severity != engine::Severity::Error) continue;
      findings.push_back({.text = problem.userText,
                          .component = component.slot,
                          .componentTitle = component.title,
                          .entry = entry});
    }
  };
  for (const engine::SurveyedComponent& component : survey.components) {
    add(component.problems, component, 0);
    for (const engine::SurveyedEntry& entry : component.entries) {
      add(entry.Problems(), component, entry.Number());
    }
  }
  return findings;
}

}  // namespace

setup::ExpectedSetup ExpectedSetupOf(const model::ModProject& project, model::VersionSlot version,
                                     engine::Survey& survey, const tools::Clock& clock) {
  setup::ExpectedSetup expected;
  expected.title = project.ProductTitle();
  expected.author = project.ProductAuthor();
  expected.confirmation = tools::ReplaceAll(model::LoadText(model::Text::ScriptConfirmation),
                                            "%title%", expected.title);
  expected.cancellation = model::LoadText(model::Text::ScriptCancelledByUser);
  expected.failure = {.message = model::LoadText(model::Text::ScriptFileNotInstalled),
                      .caption = tools::StandardText(tools::kTextError),
                      .cancellation = model::LoadText(model::Text::ScriptInstallationFailed)};
  expected.latestYear = clock.Year();
  const auto [key, title, type] = model::StoredOptions(project, version).Catalogue(expected.title);
  if (!key.empty()) expected.registration = {key, title, type};
  for (engine::SurveyedComponent& component : survey.components) {
    for (; !component.entries.empty(); component.entries.pop_front()) {
      const engine::SurveyedEntry& entry = component.entries.front();
      if (!entry.Sources().IsEmpty()) {
        expected.entries.push_back(ExpectedEntryOf(component, entry));
      }
    }
  }
  return expected;
}

setup::ProofResult ProveVersion(const setup::Setup& setup, const model::ModProject& project,
                                model::VersionSlot version, const tools::Clock& clock,
                                const std::function<void(const tools::Progress&)>& onProgress) {
  setup::ExpectedSetup expected;
  std::vector<setup::Finding> problems;
  {
    engine::Survey survey = engine::SurveyVersion(project, version, setup.folder, onProgress);
    problems = ProblemsOf(survey);
    expected = ExpectedSetupOf(project, version, survey, clock);
  }
  setup::ProofResult result =
      setup::Prove(setup, expected, std::thread::hardware_concurrency(), onProgress);
  result.findings.insert(result.findings.begin(), problems.begin(), problems.end());
  return result;
}

}  // namespace console
