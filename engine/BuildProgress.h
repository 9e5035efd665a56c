// How far a build has come, told to its observer from time to time.
#pragma once

#include <cstdint>

#include "engine/BuildObserver.h"
#include "tools/Progress.h"

namespace engine {

class BuildProgress {
 public:
  /// The references must outlive this object.
  BuildProgress(BuildObserver& observer, const tools::Clock& clock);

  /// Sets what is to be done and tells it at once. Raises tools::Stopped as ThrowIfStopped does.
  void Start(std::uint64_t files, std::uint64_t bytes);
  /// Tells what has been done, unless something was told a moment ago. Raises tools::Stopped.
  void Report(std::uint64_t files, std::uint64_t bytes);
  /// Tells the last reported state in any case.
  void Finish();
  /// Raises tools::Stopped when the observer wants the build to end. May be called often.
  void ThrowIfStopped();

 private:
  void Tell();

  BuildObserver& observer_;
  tools::ReportPace pace_;
  tools::Progress progress_;
};

}  // namespace engine
