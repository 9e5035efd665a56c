// The report of packwright-setup for programs: one JSON object a line on standard output. Its
// "event" is one of
//
//   setup      name, script, year, author, toolVersion, confirmation, registration, folder, archive
//   file       component, target, size, rule, registersItself, vital, stored, line
//   installed  target, place, outcome, redirected
//   unpacked   folder, created, replaced, kept, bytes
//   proof      proven, files, bytes
//   difference kind, target, oldTarget, what, oldValue, newValue
//   compared   differences, oldFiles, newFiles, oldBytes, newBytes
//   finding    file, line, text, component, componentTitle, entry
//   findings   count
//   progress   filesDone, filesTotal, bytesDone, bytesTotal
//   failure    text
#pragma once

#include "console/setup/SetupReport.h"

namespace console {

class JsonSetupReport : public SetupReport {
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
};

/// "add", "replaceSafely" or "copy".
[[nodiscard]] const char* RuleName(setup::CopyRule rule);

}  // namespace console
