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

/// Runs the steps of an operation. When one raises tools::Error, takes back those before it and
/// raises the error; where something could not be taken back, that is added to the description, and
/// `onRest` is called first: what is there then may be neither the old nor the new.
void RunOrTakeBack(const std::function<void(Undo&)>& steps, const std::function<void()>& onRest);

}  // namespace model
