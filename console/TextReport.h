// The report for people: problems and a progress line on standard error, the summary on standard
// output.
#pragma once

#include "console/Report.h"

namespace console {

class TextReport : public Report {
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
  ProgressLine progressLine_{Errors()};
};

/// "Fehler: ... [Komponente 2 "Hilfe", Eintrag 3]".
[[nodiscard]] std::string MessageLine(const engine::BuildMessage& message);

}  // namespace console
