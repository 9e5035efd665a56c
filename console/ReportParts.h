// What the reports of both programs say in the same way: as lines for people, or as JSON.
#pragma once

#include <chrono>
#include <cstdint>
#include <iosfwd>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "setup/Proof.h"
#include "tools/Clock.h"
#include "tools/Progress.h"

namespace console {

/// The streams that a call writes to.
struct Streams {
  std::ostream& output;
  std::ostream& errors;
  bool errorsAreTerminal = false;
  bool outputIsTerminal = false;
};

/// What the reports of both programs are made of.
class CallReport {
 public:
  /// Asks whether the user wants the call to end.
  using InterruptTest = bool (*)();

  /// With `quiet` there is no progress and no summary.
  CallReport(Streams streams, InterruptTest interrupted, bool quiet);
  virtual ~CallReport() = default;
  CallReport(const CallReport&) = delete;
  CallReport& operator=(const CallReport&) = delete;

  /// The call cannot go on.
  virtual void Failure(const std::string& text) = 0;
  /// The end of a proof whose findings have been told.
  virtual void ProofEnd(const setup::ProofResult& result) = 0;

  /// Raises tools::Stopped when the user wants the call to end.
  void ThrowIfStopped() const;

 protected:
  [[nodiscard]] const Streams& GetStreams() const { return streams_; }
  [[nodiscard]] std::ostream& Output() const { return streams_.output; }
  [[nodiscard]] std::ostream& Errors() const { return streams_.errors; }
  [[nodiscard]] bool Quiet() const { return quiet_; }
  [[nodiscard]] bool IsInterrupted() const { return interrupted_(); }
  /// Whether it is time to tell how far long work has come. If so, it counts as told.
  [[nodiscard]] bool IsProgressDue() { return pace_.IsDue(); }
  [[nodiscard]] std::chrono::duration<double> TimeSoFar() const;

 private:
  Streams streams_;
  InterruptTest interrupted_;
  bool quiet_;
  tools::SystemClock clock_;
  std::chrono::steady_clock::time_point begun_ = clock_.SteadyNow();
  tools::ReportPace pace_{clock_};
};

/// "1,5 MB": a number of bytes with a decimal prefix, one digit after the comma from kB on.
[[nodiscard]] std::string ByteText(std::uint64_t bytes);
/// A number with `digits` digits after the comma.
[[nodiscard]] std::string DecimalText(double number, int digits);
/// "3 von 15 Dateien, 1,2 MB von 13,5 MB".
[[nodiscard]] std::string ProgressText(const tools::Progress& progress);
/// "1 Beanstandung.", "2 Beanstandungen.".
[[nodiscard]] std::string FindingsText(std::size_t count);
/// What a proof without findings says.
[[nodiscard]] std::string ProofText(const setup::ProofResult& result);
/// " [Komponente 2 "Hilfe", Eintrag 3]", without what is 0 or empty; empty for no component.
[[nodiscard]] std::string OriginText(std::int32_t component, const std::string& title,
                                     std::int32_t entry);

/// The line of a terminal on which progress is written again and again.
class ProgressLine {
 public:
  /// `errors` must outlive this object.
  explicit ProgressLine(std::ostream& errors) : errors_(errors) {}
  /// Writes the text in place of the last one.
  void Show(const std::string& text);
  /// Takes the line off the terminal, so that another one can take its place.
  void Clear();

 private:
  std::ostream& errors_;
  bool isShown_ = false;
};

using Json = nlohmann::ordered_json;
/// The object on one line, without its line end. Bytes that are not UTF-8 become U+FFFD, as in file
/// names.
[[nodiscard]] std::string JsonLine(const Json& object);
/// The events that both programs have.
[[nodiscard]] Json FailureEvent(const std::string& text);
[[nodiscard]] Json ProgressEvent(const tools::Progress& progress);
[[nodiscard]] Json ProofEvent(const setup::ProofResult& result);

}  // namespace console
