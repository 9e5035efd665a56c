// The report for people: problems and a progress line on standard error, the summary on standard
// output.
#pragma once

#include "console/Report.h"

namespace console {

class TextReport : public Report {
 public:
  TextReport(Streams streams, InterruptTest interrupted, bool quiet);

  void OnMessage(const engine::BuildMessage& message) override;
  void OnProgress(const tools::Progress& progress) override;
  void Failure(const std::string& text) override;
  void CheckEnd(std::size_t findings) override;
  void ProofEnd(const setup::ProofResult& result) override;
  void Listing(const model::ModProject& project) override;
  void Summary(const engine::BuildSummary& summary) override;

 private:
  /// Takes the progress line off the terminal, so that another line can take its place.
  void ClearProgress();

  bool quiet_;
  bool progressShown_ = false;
};

/// "1,5 MB": a number of bytes with a decimal prefix, one digit after the comma from kB on.
[[nodiscard]] std::string ByteText(std::uint64_t bytes);

/// What a proof without findings says.
[[nodiscard]] std::string ProofText(const setup::ProofResult& result);

/// A number with `digits` digits after the comma.
[[nodiscard]] std::string DecimalText(double number, int digits);

/// "Fehler: ... [Komponente 2 "Hilfe", Eintrag 3]".
[[nodiscard]] std::string MessageLine(const engine::BuildMessage& message);

}  // namespace console
