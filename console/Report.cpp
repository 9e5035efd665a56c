#include "console/Report.h"

#include "engine/OutputContent.h"

namespace console {

bool Report::MayEmptyOutputFolder(const std::string& folder) {
  if (replaceable_ != Replaceable::EarlierSetup) return replaceable_ == Replaceable::Everything;
  return engine::FirstOtherFile(folder).empty();
}

void Report::OnProofProgress(const tools::Progress& progress) {
  ThrowIfStopped();
  if (IsProgressDue()) OnProgress(progress);
}

void Report::ForEachComponent(const model::ModProject& project, model::VersionSlot version,
                              const ComponentTeller& tell) const {
  ThrowIfStopped();
  for (const model::ComponentSlot slot :
       project.PossibleComponentSlots(version, [this] { ThrowIfStopped(); })) {
    ThrowIfStopped();
    const std::string title = project.ComponentTitle(version, slot);
    if (!title.empty()) tell(slot, title);
  }
}

double Ratio(const tools::ArchiveTotals& totals) {
  if (totals.bytesIn == 0) return 1.0;
  return static_cast<double>(totals.bytesOut) / static_cast<double>(totals.bytesIn);
}

}  // namespace console
