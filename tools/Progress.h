// How far a long operation has come, how often that is told, and how it is stopped.
#pragma once

#include <chrono>
#include <cstdint>

#include "tools/Clock.h"

namespace tools {

/// A total of 0 means that it is not known.
struct Progress {
  std::uint64_t filesDone = 0;
  std::uint64_t filesTotal = 0;
  std::uint64_t bytesDone = 0;
  std::uint64_t bytesTotal = 0;
};

/// Thrown to end a long operation that its user stopped. It is no Error: nothing has failed.
struct Stopped {};

/// Thins out reports: often enough to look alive, seldom enough to cost nothing.
class ReportPace {
 public:
  static constexpr std::chrono::milliseconds kInterval{100};

  /// `clock` must outlive this object. The first report is due one interval from now.
  explicit ReportPace(const Clock& clock) : clock_(clock), last_(clock.SteadyNow()) {}

  /// Whether a report is due. One that is counts as made.
  [[nodiscard]] bool IsDue() {
    const auto now = clock_.SteadyNow();
    if (now - last_ < kInterval) return false;
    last_ = now;
    return true;
  }
  /// A report was made without asking IsDue: the next one is due one interval from now.
  void Restart() { last_ = clock_.SteadyNow(); }

 private:
  const Clock& clock_;
  std::chrono::steady_clock::time_point last_;
};

}  // namespace tools
