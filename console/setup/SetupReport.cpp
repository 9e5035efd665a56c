#include "console/setup/SetupReport.h"

#include "tools/files/Path.h"

namespace console {

namespace {

constexpr std::chrono::milliseconds kProgressInterval{250};

}  // namespace

SetupReport::SetupReport(Streams streams, Report::InterruptTest interrupted, bool quiet)
    : streams_(streams),
      interrupted_(interrupted),
      quiet_(quiet),
      lastShown_(std::chrono::steady_clock::now()) {}

void SetupReport::OnProgress(const tools::Progress& progress) {
  if (interrupted_()) throw Interrupted();
  const auto now = std::chrono::steady_clock::now();
  if (quiet_ || progress.filesTotal == 0 || now - lastShown_ < kProgressInterval) return;
  lastShown_ = now;
  ShowProgress(progress);
}

std::string NameOf(const setup::Setup& setup) {
  const std::string name = tools::FileNamePart(setup.scriptPath);
  return name.substr(0, name.find_last_of('.'));
}

}  // namespace console
