#include "console/Report.h"

#include "engine/OutputContent.h"

namespace console {

Report::Report(Streams streams, InterruptTest interrupted)
    : streams_(streams), interrupted_(interrupted) {}

bool Report::MayEmptyOutputFolder(const std::string& folder) {
  if (replaceable_ != Replaceable::EarlierSetup) return replaceable_ == Replaceable::Everything;
  return engine::FirstOtherFile(folder).empty();
}

void Report::ThrowIfStopped() const {
  if (interrupted_()) throw tools::Stopped();
}

void Report::OnProofProgress(const tools::Progress& progress) {
  ThrowIfStopped();
  if (pace_.IsDue()) OnProgress(progress);
}

void Report::ForEachComponent(const model::ModProject& project, std::int32_t version,
                              const ComponentTeller& tell) const {
  ThrowIfStopped();
  for (const std::int32_t slot :
       project.PossibleComponentSlots(version, [this] { ThrowIfStopped(); })) {
    ThrowIfStopped();
    const std::string title = project.ComponentTitle(version, slot);
    if (!title.empty()) tell(slot, title);
  }
}

double Report::SecondsSoFar() const {
  return std::chrono::duration<double>(clock_.SteadyNow() - begun_).count();
}

double Ratio(const tools::ArchiveTotals& totals) {
  if (totals.bytesIn == 0) return 1.0;
  return static_cast<double>(totals.bytesOut) / static_cast<double>(totals.bytesIn);
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
    case engine::BuildOutcome::Stopped:
      return "stopped";
  }
  return {};
}

}  // namespace console
