#include "console/Report.h"

namespace console {

namespace {

constexpr std::chrono::milliseconds kProgressInterval{250};

}  // namespace

Report::Report(Streams streams, InterruptTest interrupted)
    : streams_(streams),
      interrupted_(interrupted),
      begun_(std::chrono::steady_clock::now()),
      lastShown_(begun_) {}

void Report::OnProgress(const tools::Progress& progress) {
  GoOn();
  if (progress.filesTotal == 0) return;
  const auto now = std::chrono::steady_clock::now();
  if (now - lastShown_ < kProgressInterval) return;
  lastShown_ = now;
  ShowProgress(progress);
}

void Report::GoOn() const {
  if (interrupted_()) throw Interrupted();
}

double Report::SecondsSoFar() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun_).count();
}

double Ratio(const engine::BuildSummary& summary) {
  if (summary.bytesIn == 0) return 1.0;
  return static_cast<double>(summary.bytesOut) / static_cast<double>(summary.bytesIn);
}

std::string OutcomeName(engine::BuildOutcome outcome) {
  switch (outcome) {
    case engine::BuildOutcome::Finished:
      return "finished";
    case engine::BuildOutcome::InvalidOutputFolder:
      return "invalid-output-folder";
    case engine::BuildOutcome::OutputFolderInUse:
      return "output-folder-in-use";
    case engine::BuildOutcome::OutputFolderStuck:
      return "output-folder-stuck";
    case engine::BuildOutcome::Incomplete:
      return "incomplete";
  }
  return {};
}

}  // namespace console
