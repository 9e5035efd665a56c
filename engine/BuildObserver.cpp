#include "engine/BuildObserver.h"

namespace engine {

BuildProgress::BuildProgress(BuildObserver& observer, const tools::Clock& clock)
    : observer_(observer), pace_(clock) {}

void BuildProgress::Search(const tools::Progress& found) {
  if (pace_.IsDue()) observer_.OnProgress(found);
  ThrowIfStopped();
}

void BuildProgress::Start(std::uint64_t files, std::uint64_t bytes) {
  progress_.filesTotal = files;
  progress_.bytesTotal = bytes;
  Tell();
  ThrowIfStopped();
}

void BuildProgress::Report(std::uint64_t files, std::uint64_t bytes) {
  progress_.filesDone = files;
  progress_.bytesDone = bytes;
  if (pace_.IsDue()) observer_.OnProgress(progress_);
  ThrowIfStopped();
}

void BuildProgress::Finish() { Tell(); }

void BuildProgress::ThrowIfStopped() {
  if (observer_.IsStopWanted()) throw tools::Stopped();
}

void BuildProgress::Tell() {
  pace_.Restart();
  observer_.OnProgress(progress_);
}

}  // namespace engine
