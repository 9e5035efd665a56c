// What a check has found so far.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "engine/BuildLog.h"
#include "engine/BuildObserver.h"
#include "tools/Error.h"

namespace engine {

class Findings {
 public:
  /// Adds a problem; the same problem at the same place is added once.
  void Report(const std::string& text, const Place& place = {},
              Severity severity = Severity::Error);

  /// Runs a part of the check. An error that ends it is added as a problem.
  template <typename Action>
  void Try(const Place& place, const Action& action) {
    try {
      action();
    } catch (const tools::Error& error) {
      Report(error.what(), place);
    }
  }

  [[nodiscard]] std::vector<BuildMessage> Take() { return std::move(found_); }

 private:
  std::vector<BuildMessage> found_;
};

}  // namespace engine
