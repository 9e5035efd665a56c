#include "console/setup/JsonSetupReport.h"

#include <nlohmann/json.hpp>
#include <ostream>

namespace console {

namespace {

void WriteLine(std::ostream& output, const Json& object) { output << JsonLine(object) << '\n'; }

Json HeadOf(const setup::Setup& setup) {
  const setup::Plan& plan = setup.plan;
  Json head{{"event", "setup"},
            {"name", NameOf(setup)},
            {"script", setup.scriptPath},
            {"year", plan.head.year},
            {"author", plan.head.author},
            {"toolVersion", plan.head.toolVersion},
            {"confirmation", plan.confirmation},
            {"registration", nullptr},
            {"folder", plan.folderProposal},
            {"archive", plan.archive}};
  if (plan.registration) {
    head["registration"] = {{"key", plan.registration->key},
                            {"title", plan.registration->title},
                            {"type", plan.registration->type}};
  }
  return head;
}

const char* OutcomeName(setup::InstalledFile::Outcome outcome) {
  switch (outcome) {
    case setup::InstalledFile::Outcome::New:
      return "new";
    case setup::InstalledFile::Outcome::Replaced:
      return "replaced";
    case setup::InstalledFile::Outcome::Kept:
      return "kept";
  }
  return "";
}

const char* KindName(setup::Difference::Kind kind) {
  switch (kind) {
    case setup::Difference::Kind::Head:
      return "head";
    case setup::Difference::Kind::Added:
      return "added";
    case setup::Difference::Kind::Removed:
      return "removed";
    case setup::Difference::Kind::Renamed:
      return "renamed";
    case setup::Difference::Kind::Changed:
      return "changed";
  }
  return "";
}

}  // namespace

const char* RuleName(setup::CopyRule rule) {
  switch (rule) {
    case setup::CopyRule::Add:
      return "add";
    case setup::CopyRule::ReplaceSafely:
      return "replaceSafely";
    case setup::CopyRule::Copy:
      return "copy";
  }
  return "";
}

void JsonSetupReport::Failure(const std::string& text) { WriteLine(Output(), FailureEvent(text)); }

void JsonSetupReport::OnFinding(const setup::Finding& finding) {
  WriteLine(Output(), {{"event", "finding"},
                       {"file", finding.file},
                       {"line", finding.line},
                       {"text", finding.text},
                       {"component", finding.component},
                       {"componentTitle", finding.componentTitle},
                       {"entry", finding.entry}});
}

void JsonSetupReport::FindingsEnd(std::size_t count) {
  if (!Quiet()) WriteLine(Output(), {{"event", "findings"}, {"count", count}});
}

void JsonSetupReport::Listing(const setup::Setup& setup) {
  if (!Quiet()) WriteLine(Output(), HeadOf(setup));
  for (const setup::PlannedFile& file : setup.plan.files) {
    const std::optional<std::uint64_t> size = setup::SizeOf(setup, file);
    WriteLine(Output(), {{"event", "file"},
                         {"component", setup.plan.components[file.component]},
                         {"target", file.target},
                         {"size", size ? Json(*size) : Json()},
                         {"rule", RuleName(file.rule)},
                         {"registersItself", file.registersItself},
                         {"vital", file.vital},
                         {"stored", file.stored},
                         {"line", file.line}});
  }
}

void JsonSetupReport::Installed(const setup::InstalledFile& file) {
  WriteLine(Output(), {{"event", "installed"},
                       {"target", file.planned.target},
                       {"place", file.place},
                       {"outcome", OutcomeName(file.outcome)},
                       {"redirected", file.IsRedirected()}});
}

void JsonSetupReport::InstallationEnd(const setup::InstallationTotals& totals,
                                      const std::string& folder) {
  if (Quiet()) return;
  WriteLine(Output(), {{"event", "unpacked"},
                       {"folder", folder},
                       {"created", totals.created},
                       {"replaced", totals.replaced},
                       {"kept", totals.kept},
                       {"bytes", totals.bytes}});
}

void JsonSetupReport::ProofEnd(const setup::ProofResult& result) {
  if (!Quiet()) WriteLine(Output(), ProofEvent(result));
}

void JsonSetupReport::Differences(const setup::SetupComparison& comparison) {
  for (const setup::Difference& difference : comparison.differences) {
    WriteLine(Output(), {{"event", "difference"},
                         {"kind", KindName(difference.kind)},
                         {"target", difference.target},
                         {"oldTarget", difference.oldTarget},
                         {"what", difference.what},
                         {"oldValue", difference.oldValue},
                         {"newValue", difference.newValue}});
  }
  if (Quiet()) return;
  WriteLine(Output(), {{"event", "compared"},
                       {"differences", comparison.differences.size()},
                       {"oldFiles", comparison.oldFiles},
                       {"newFiles", comparison.newFiles},
                       {"oldBytes", comparison.oldBytes},
                       {"newBytes", comparison.newBytes}});
}

void JsonSetupReport::ShowProgress(const tools::Progress& progress) {
  WriteLine(Output(), ProgressEvent(progress));
}

}  // namespace console
