// Where the messages of packwright-setup go: tables for people, lines or JSON for programs.
#pragma once

#include <cstddef>
#include <string>

#include "console/Report.h"
#include "setup/Comparison.h"
#include "setup/Plan.h"
#include "setup/Proof.h"
#include "setup/Setup.h"
#include "setup/TestInstallation.h"
#include "tools/Progress.h"

namespace console {

class SetupReport {
 public:
  SetupReport(Streams streams, Report::InterruptTest interrupted, bool quiet);
  virtual ~SetupReport() = default;
  SetupReport(const SetupReport&) = delete;
  SetupReport& operator=(const SetupReport&) = delete;

  /// Shows now and then how far long work has come. Raises tools::Stopped when the user wants the
  /// call to end.
  void OnProgress(const tools::Progress& progress);

  /// The call cannot go on.
  virtual void Failure(const std::string& text) = 0;
  virtual void OnFinding(const setup::Finding& finding) = 0;
  /// After the last finding of a call; `count` with those that are not kept.
  virtual void FindingsEnd(std::size_t count) = 0;
  /// What the setup would install.
  virtual void Listing(const setup::Setup& setup) = 0;
  /// A file of a test installation.
  virtual void Installed(const setup::InstalledFile& file) = 0;
  virtual void InstallationEnd(const setup::InstallationTotals& totals,
                               const std::string& folder) = 0;
  /// The end of a proof whose findings have been told.
  virtual void ProofEnd(const setup::ProofResult& result) = 0;
  /// What a new setup does other than an old one.
  virtual void Differences(const setup::SetupComparison& comparison) = 0;

 protected:
  virtual void ShowProgress(const tools::Progress& progress) = 0;

  [[nodiscard]] std::ostream& Output() const { return streams_.output; }
  [[nodiscard]] std::ostream& Errors() const { return streams_.errors; }
  [[nodiscard]] const Streams& GetStreams() const { return streams_; }
  [[nodiscard]] bool Quiet() const { return quiet_; }

 private:
  Streams streams_;
  Report::InterruptTest interrupted_;
  bool quiet_;
  tools::SystemClock clock_;
  tools::ReportPace pace_{clock_};
};

/// The setup's name: that of its script without the extension.
[[nodiscard]] std::string NameOf(const setup::Setup& setup);

}  // namespace console
