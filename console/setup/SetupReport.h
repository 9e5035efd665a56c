// Where the messages of packwright-setup go: tables for people, lines or JSON for programs.
#pragma once

#include <cstddef>
#include <string>

#include "console/ReportParts.h"
#include "setup/Comparison.h"
#include "setup/Plan.h"
#include "setup/Proof.h"
#include "setup/Setup.h"
#include "setup/TestInstallation.h"
#include "tools/Progress.h"
#include "tools/files/Path.h"

namespace console {

class SetupReport : public CallReport {
 public:
  using CallReport::CallReport;

  /// Shows now and then how far long work has come. Raises tools::Stopped when the user wants the
  /// call to end.
  void OnProgress(const tools::Progress& progress) {
    ThrowIfStopped();
    if (!Quiet() && progress.filesTotal > 0 && IsProgressDue()) ShowProgress(progress);
  }

  virtual void OnFinding(const setup::Finding& finding) = 0;
  /// After the last finding of a call; `count` with those that are not kept.
  virtual void FindingsEnd(std::size_t count) = 0;
  /// What the setup would install.
  virtual void Listing(const setup::Setup& setup) = 0;
  /// A file of a test installation.
  virtual void Installed(const setup::InstalledFile& file) = 0;
  virtual void InstallationEnd(const setup::InstallationTotals& totals,
                               const std::string& folder) = 0;
  /// What a new setup does other than an old one.
  virtual void Differences(const setup::SetupComparison& comparison) = 0;

 protected:
  virtual void ShowProgress(const tools::Progress& progress) = 0;
};

/// The setup's name: that of its script without the extension.
[[nodiscard]] inline std::string NameOf(const setup::Setup& setup) {
  const std::string name = tools::FileNamePart(setup.scriptPath);
  return name.substr(0, name.find_last_of('.'));
}

}  // namespace console
