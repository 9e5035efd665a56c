// Where the console program's messages go: lines for people, or JSON for programs.
#pragma once

#include <chrono>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "console/CommandLine.h"
#include "engine/BuildStatus.h"
#include "model/ModProject.h"
#include "setup/Proof.h"

namespace console {

/// Thrown by a build's observer to end a build that the user interrupted.
struct Interrupted {};

/// The streams that a call writes to.
struct Streams {
  std::ostream& output;
  std::ostream& errors;
  bool errorsAreTerminal = false;
  bool outputIsTerminal = false;
};

/// A build's observer that also says everything else that the program has to say.
class Report : public engine::BuildStatus {
 public:
  /// Asks whether the user wants the build to end.
  using InterruptTest = bool (*)();

  Report(Streams streams, InterruptTest interrupted);

  void OnProgress(const tools::Progress& progress) override;
  void OnEnd(const engine::BuildSummary& summary) override { summary_ = summary; }

  /// Raises Interrupted when the user wants the call to end.
  void GoOn() const;
  /// The call cannot go on.
  virtual void Failure(const std::string& text) = 0;
  /// What --check found has been reported; `findings` of them.
  virtual void CheckEnd(std::size_t findings) = 0;
  /// The end of a proof whose findings have been told as messages.
  virtual void ProofEnd(const setup::ProofResult& result) = 0;
  /// The versions and components of a product.
  virtual void Listing(const model::ModProject& project) = 0;
  /// The end of a build that reached its end.
  virtual void Summary() = 0;

  [[nodiscard]] const engine::BuildSummary& Result() const { return summary_; }
  [[nodiscard]] double SecondsSoFar() const;

 protected:
  /// Shows how far the build has come; called a few times a second.
  virtual void ShowProgress(const tools::Progress& progress) = 0;

  [[nodiscard]] std::ostream& Output() const { return streams_.output; }
  [[nodiscard]] std::ostream& Errors() const { return streams_.errors; }
  [[nodiscard]] bool ErrorsAreTerminal() const { return streams_.errorsAreTerminal; }

 private:
  Streams streams_;
  InterruptTest interrupted_;
  engine::BuildSummary summary_;
  std::chrono::steady_clock::time_point begun_;
  std::chrono::steady_clock::time_point lastShown_;
};

/// The size of what came out as a part of what went in; 1 when nothing went in.
[[nodiscard]] double Ratio(const engine::BuildSummary& summary);

/// The outcome's name in JSON: "finished", "invalid-output-folder" and so on.
[[nodiscard]] std::string OutcomeName(engine::BuildOutcome outcome);

}  // namespace console
