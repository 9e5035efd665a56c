// Where the console program's messages go: lines for people, or JSON for programs.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "console/CommandLine.h"
#include "engine/Build.h"
#include "model/ModProject.h"
#include "setup/Proof.h"

namespace console {

/// The streams that a call writes to.
struct Streams {
  std::ostream& output;
  std::ostream& errors;
  bool errorsAreTerminal = false;
  bool outputIsTerminal = false;
};

/// What may be deleted to make room for a new setup.
enum class Replaceable { Nothing, EarlierSetup, Everything };

/// A build's observer that also says everything else that the program has to say.
class Report : public engine::BuildObserver {
 public:
  /// Asks whether the user wants the build to end.
  using InterruptTest = bool (*)();

  Report(Streams streams, InterruptTest interrupted);

  /// What a build may delete in its output folder; without a call it is nothing.
  void Allow(Replaceable replaceable) { replaceable_ = replaceable; }
  bool MayEmptyOutputFolder(const std::string& folder) override;
  bool IsStopWanted() override { return interrupted_(); }

  /// Raises tools::Stopped when the user wants the call to end.
  void ThrowIfStopped() const;
  /// How far a proof has come: thins out what it is told, and raises tools::Stopped.
  void OnProofProgress(const tools::Progress& progress);
  /// The call cannot go on.
  virtual void Failure(const std::string& text) = 0;
  /// What --check found has been reported; `findings` of them.
  virtual void CheckEnd(std::size_t findings) = 0;
  /// The end of a proof whose findings have been told as messages.
  virtual void ProofEnd(const setup::ProofResult& result) = 0;
  /// The versions and components of a product. Raises tools::Stopped.
  virtual void Listing(const model::ModProject& project) = 0;
  /// The end of a build that reached its end.
  virtual void Summary(const engine::BuildSummary& summary) = 0;

  [[nodiscard]] double SecondsSoFar() const;

 protected:
  using ComponentTeller = std::function<void(std::int32_t slot, const std::string& title)>;
  /// Tells of each component of a version as it is read. Raises tools::Stopped.
  void ForEachComponent(const model::ModProject& project, std::int32_t version,
                        const ComponentTeller& tell) const;
  [[nodiscard]] std::ostream& Output() const { return streams_.output; }
  [[nodiscard]] std::ostream& Errors() const { return streams_.errors; }
  [[nodiscard]] bool ErrorsAreTerminal() const { return streams_.errorsAreTerminal; }

 private:
  Streams streams_;
  InterruptTest interrupted_;
  Replaceable replaceable_ = Replaceable::Nothing;
  tools::SystemClock clock_;
  std::chrono::steady_clock::time_point begun_ = clock_.SteadyNow();
  tools::ReportPace pace_{clock_};
};

/// The size of what came out as a part of what went in; 1 when nothing went in.
[[nodiscard]] double Ratio(const tools::ArchiveTotals& totals);

/// The outcome's name in JSON: "finished", "invalid-output-folder" and so on.
[[nodiscard]] std::string OutcomeName(engine::BuildOutcome outcome);

}  // namespace console
