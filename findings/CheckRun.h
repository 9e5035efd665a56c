// A check of one version in the background, while the author goes on working.
#pragma once

#include <QObject>
#include <cstdint>
#include <list>
#include <string>
#include <thread>
#include <vector>

#include "engine/BuildObserver.h"

namespace findings {

/// What is checked: the version in slot `version` as it is stored, for a build with `options`.
struct CheckRequest {
  std::string productPath;
  model::VersionSlot version = 0;
  engine::BuildOptions options;
  std::string programFolder;  ///< as the build has it
};

/// Each check reads the product by itself, on a thread of its own: nothing waits for it. Public
/// members are for the thread that made the object.
class CheckRun : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;
  /// Waits for threads that still read.
  ~CheckRun() override;

  /// Starts a check; one that runs is dropped without a result.
  void Start(const CheckRequest& request);
  /// Drops the check that runs.
  void Stop();

 Q_SIGNALS:
  /// The check has ended; what it found is in order of component and entry.
  void Finished(const std::vector<engine::BuildMessage>& messages);

 private:
  struct Thread {
    std::uint64_t number = 0;
    std::jthread thread;
  };

  void Take(std::uint64_t number, const std::vector<engine::BuildMessage>& messages);

  std::list<Thread> threads_;  ///< the last one is wanted, those before it were dropped
  std::uint64_t started_ = 0;
  std::uint64_t current_ = 0;  ///< number of the check that runs, 0 for none
};

}  // namespace findings
