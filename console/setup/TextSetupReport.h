// The report of packwright-setup for people: findings and a progress line on standard error, tables
// on standard output.
#pragma once

#include "console/setup/SetupReport.h"
#include "console/setup/Table.h"

namespace console {

class TextSetupReport : public SetupReport {
 public:
  using SetupReport::SetupReport;

  void Failure(const std::string& text) override;
  void OnFinding(const setup::Finding& finding) override;
  void FindingsEnd(std::size_t count) override;
  void Listing(const setup::Setup& setup) override;
  void Installed(const setup::InstalledFile& file) override;
  void InstallationEnd(const setup::InstallationTotals& totals, const std::string& folder) override;
  void ProofEnd(const setup::ProofResult& result) override;
  void Differences(const setup::SetupComparison& comparison) override;

 protected:
  void ShowProgress(const tools::Progress& progress) override;

 private:
  void ListHead(const setup::Setup& setup);
  void ListFiles(const setup::Setup& setup);

  ProgressLine progressLine_{Errors()};
};

}  // namespace console
