// The report for programs: one JSON object a line on standard output. Each has an "event":
//   warning, error   text, detail, component, componentTitle, entry (0 and empty where none)
//   progress         filesDone, filesTotal, bytesDone, bytesTotal, seconds
//   product          title, versions: [{version, slot, components: [{slot, title}]}]
//   checked          findings
//   summary          outcome, outputFolder, files, bytesIn, bytesOut, ratio, filesTakenOver,
//                    bytesTakenOver, seconds, times: {survey, packing, script, total}, warnings,
//                    errors
//   proof            proven, files, bytes
//   failure          text
#pragma once

#include "console/Report.h"

namespace console {

class JsonReport : public Report {
 public:
  using Report::Report;

  void OnMessage(const engine::BuildMessage& message) override;
  void OnProgress(const tools::Progress& progress) override;
  void Failure(const std::string& text) override;
  void CheckEnd(std::size_t findings) override;
  void ProofEnd(const setup::ProofResult& result) override;
  void Listing(const model::ModProject& project) override;
  void Summary(const engine::BuildSummary& summary) override;

 private:
  void Tell(const Json& event);
};

}  // namespace console
