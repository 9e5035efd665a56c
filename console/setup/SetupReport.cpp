#include "console/setup/SetupReport.h"

#include "tools/files/Path.h"

namespace console {

SetupReport::SetupReport(Streams streams, Report::InterruptTest interrupted, bool quiet)
    : streams_(streams), interrupted_(interrupted), quiet_(quiet) {}

void SetupReport::OnProgress(const tools::Progress& progress) {
  if (interrupted_()) throw tools::Stopped();
  if (!quiet_ && progress.filesTotal > 0 && pace_.IsDue()) ShowProgress(progress);
}

std::string NameOf(const setup::Setup& setup) {
  const std::string name = tools::FileNamePart(setup.scriptPath);
  return name.substr(0, name.find_last_of('.'));
}

}  // namespace console
