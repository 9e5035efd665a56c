// Takes back what an operation has done when a later step of it fails.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace model {

class Undo {
 public:
  /// Remembers how to take back the step that has just been done. It may raise tools::Error.
  void Add(std::function<void()> step);

  /// Takes back all steps, the last one first; one that fails does not keep the others from being
  /// tried. Returns what could not be taken back and why, empty when nothing stayed.
  [[nodiscard]] std::string Run();

 private:
  std::vector<std::function<void()>> steps_;
};

}  // namespace model
