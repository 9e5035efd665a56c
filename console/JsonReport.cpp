#include "console/JsonReport.h"

#include <nlohmann/json.hpp>
#include <ostream>
#include <utility>

#include "tools/Text.h"

namespace console {

namespace {

using Json = nlohmann::ordered_json;

/// File names need not be UTF-8: what is not becomes U+FFFD.
void WriteLine(std::ostream& output, const Json& object) {
  // The library leaves those beyond ASCII as they are; they stand in strings alone.
  output << tools::EscapeControlCharacters(
                object.dump(-1, ' ', false, Json::error_handler_t::replace))
         << std::endl;
}

}  // namespace

JsonReport::JsonReport(Streams streams, InterruptTest interrupted, bool quiet)
    : Report(streams, interrupted), quiet_(quiet) {}

void JsonReport::OnMessage(const engine::BuildMessage& message) {
  const bool isError = message.severity == engine::Severity::Error;
  WriteLine(Output(), {{"event", isError ? "error" : "warning"},
                       {"text", message.text},
                       {"detail", message.detail},
                       {"component", message.component},
                       {"componentTitle", message.componentTitle},
                       {"entry", message.entry}});
}

void JsonReport::Failure(const std::string& text) {
  WriteLine(Output(), {{"event", "failure"}, {"text", text}});
}

void JsonReport::CheckEnd(std::size_t findings) {
  if (!quiet_) WriteLine(Output(), {{"event", "checked"}, {"findings", findings}});
}

void JsonReport::ProofEnd(const setup::ProofResult& result) {
  if (quiet_) return;
  WriteLine(Output(), {{"event", "proof"},
                       {"proven", result.findings.empty()},
                       {"files", result.files},
                       {"bytes", result.bytes}});
}

void JsonReport::Listing(const model::ModProject& project) {
  Json versions = Json::array();
  for (const std::int32_t version : project.VersionSlots()) {
    Json components = Json::array();
    ForEachComponent(project, version, [&](std::int32_t slot, const std::string& title) {
      components.push_back({{"slot", slot}, {"title", title}});
    });
    versions.push_back({{"version", project.VersionString(version)},
                        {"slot", version},
                        {"components", std::move(components)}});
  }
  WriteLine(Output(),
            {{"event", "product"}, {"title", project.ProductTitle()}, {"versions", versions}});
}

void JsonReport::Summary(const engine::BuildSummary& summary) {
  if (quiet_) return;
  WriteLine(Output(), {{"event", "summary"},
                       {"outcome", OutcomeName(summary.outcome)},
                       {"outputFolder", summary.outputFolder},
                       {"files", summary.stored.files},
                       {"bytesIn", summary.stored.bytesIn},
                       {"bytesOut", summary.stored.bytesOut},
                       {"ratio", Ratio(summary.stored)},
                       {"filesTakenOver", summary.stored.filesTakenOver},
                       {"bytesTakenOver", summary.stored.bytesTakenOver},
                       {"seconds", SecondsSoFar()},
                       {"times",
                        {{"survey", summary.times.survey},
                         {"packing", summary.times.packing},
                         {"script", summary.times.script},
                         {"total", summary.times.total}}},
                       {"warnings", summary.warnings},
                       {"errors", summary.errors}});
}

void JsonReport::OnProgress(const tools::Progress& progress) {
  if (quiet_ || progress.filesTotal == 0) return;
  WriteLine(Output(), {{"event", "progress"},
                       {"filesDone", progress.filesDone},
                       {"filesTotal", progress.filesTotal},
                       {"bytesDone", progress.bytesDone},
                       {"bytesTotal", progress.bytesTotal},
                       {"seconds", SecondsSoFar()}});
}

}  // namespace console
