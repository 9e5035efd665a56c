// Passes on how far a build has come, to the busy notice and to the status observer.
#pragma once

#include <chrono>

#include "engine/BuildStatus.h"
#include "tools/Dialogs.h"

namespace engine {

class BuildProgress {
 public:
  /// `notice` is the busy notice's token; the references must outlive this object.
  BuildProgress(tools::Dialogs& dialogs, int notice, BuildStatus& status);

  /// Sets what is to be done and tells it at once.
  void Start(std::uint64_t files, std::uint64_t bytes);
  /// Tells what has been done, unless something was told a moment ago.
  void Report(std::uint64_t files, std::uint64_t bytes);
  /// Tells the last reported state in any case.
  void Finish();
  /// Lets the observer stop the build while there is nothing to show yet. May be called often.
  void AskLeave();

 private:
  void Tell();

  tools::Dialogs& dialogs_;
  int notice_;
  BuildStatus& status_;
  tools::Progress progress_;
  std::chrono::steady_clock::time_point lastTold_;
};

}  // namespace engine
