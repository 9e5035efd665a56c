#include "console/JsonReport.h"

#include <nlohmann/json.hpp>
#include <ostream>
#include <utility>

namespace console {

namespace {

/// The outcome's name in JSON.
std::string OutcomeName(engine::BuildOutcome outcome) {
  switch (outcome) {
    case engine::BuildOutcome::Finished:
      return "finished";
    case engine::BuildOutcome::InvalidOutputFolder:
      return "invalid-output-folder";
    case engine::BuildOutcome::OutputFolderInUse:
      return "output-folder-in-use";
    case engine::BuildOutcome::OutputFolderStuck:
      return "output-folder-stuck";
    case engine::BuildOutcome::Incomplete:
      return "incomplete";
    case engine::BuildOutcome::Stopped:
      return "stopped";
  }
  return {};
}

}  // namespace

// Each line is flushed: who reads them wants to know at once.
void JsonReport::Tell(const Json& event) { Output() << JsonLine(event) << std::endl; }

void JsonReport::OnMessage(const engine::BuildMessage& message) {
  const bool isError = message.severity == engine::Severity::Error;
  Tell({{"event", isError ? "error" : "warning"},
        {"text", message.text},
        {"detail", message.detail},
        {"component", std::int32_t{message.component}},
        {"componentTitle", message.componentTitle},
        {"entry", message.entry}});
}

void JsonReport::Failure(const std::string& text) { Tell(FailureEvent(text)); }

void JsonReport::CheckEnd(std::size_t findings) {
  if (!Quiet()) Tell({{"event", "checked"}, {"findings", findings}});
}

void JsonReport::ProofEnd(const setup::ProofResult& result) {
  if (!Quiet()) Tell(ProofEvent(result));
}

void JsonReport::Listing(const model::ModProject& project) {
  Json versions = Json::array();
  for (const model::VersionSlot version : project.VersionSlots()) {
    Json components = Json::array();
    ForEachComponent(project, version, [&](model::ComponentSlot slot, const std::string& title) {
      components.push_back({{"slot", std::int32_t{slot}}, {"title", title}});
    });
    versions.push_back({{"version", project.VersionString(version)},
                        {"slot", std::int32_t{version}},
                        {"components", std::move(components)}});
  }
  Tell({{"event", "product"}, {"title", project.ProductTitle()}, {"versions", versions}});
}

void JsonReport::Summary(const engine::BuildSummary& summary) {
  if (Quiet()) return;
  Tell({{"event", "summary"},
        {"outcome", OutcomeName(summary.outcome)},
        {"outputFolder", summary.outputFolder},
        {"files", summary.stored.files},
        {"bytesIn", summary.stored.bytesIn},
        {"bytesOut", summary.stored.bytesOut},
        {"ratio", Ratio(summary.stored)},
        {"filesTakenOver", summary.stored.filesTakenOver},
        {"bytesTakenOver", summary.stored.bytesTakenOver},
        {"seconds", TimeSoFar().count()},
        {"times",
         {{"survey", summary.times.survey.count()},
          {"packing", summary.times.packing.count()},
          {"script", summary.times.script.count()},
          {"total", summary.times.total.count()}}},
        {"warnings", summary.warnings},
        {"errors", summary.errors}});
}

void JsonReport::OnProgress(const tools::Progress& progress) {
  if (Quiet() || progress.filesTotal == 0) return;
  Json event = ProgressEvent(progress);
  event["seconds"] = TimeSoFar().count();
  Tell(event);
}

}  // namespace console
