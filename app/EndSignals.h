// The system's wish that the program ends, where it comes as a signal.
#pragma once

#include <QObject>
#include <functional>
#include <memory>

namespace app {

/// Calls a function in the event loop when the process is told to end (SIGTERM) or its terminal is
/// closed (SIGHUP), in place of ending at once. On Windows there are no such signals: this does
/// nothing, and the system asks by window messages.
class EndSignals : public QObject {
 public:
  /// One object at a time. Signals that the caller had ignored (nohup) stay so, and where the
  /// system has no pipe left they end the program as they did.
  explicit EndSignals(std::function<void()> onEnd);
  ~EndSignals() override;

 private:
  struct Pipe;
  std::unique_ptr<Pipe> pipe_;
};

}  // namespace app
