#include "model/Undo.h"

#include <exception>
#include <utility>

#include "tools/Error.h"

namespace model {

void Undo::Add(std::function<void()> step) { steps_.push_back(std::move(step)); }

std::string Undo::Run() {
  std::string failures;
  while (!steps_.empty()) {
    try {
      steps_.back()();
    } catch (const std::exception& error) {
      if (!failures.empty()) failures += "; ";
      failures += error.what();
    }
    steps_.pop_back();
  }
  return failures;
}

void RunOrTakeBack(const std::function<void(Undo&)>& steps, const std::function<void()>& onRest) {
  Undo undo;
  try {
    steps(undo);
  } catch (const std::exception& error) {
    const std::string stayed = undo.Run();
    if (stayed.empty()) throw;
    onRest();
    const auto* told = dynamic_cast<const tools::Error*>(&error);
    throw tools::Error(std::string(error.what()) + "\nNicht alles wurde zurückgenommen: " + stayed,
                       told == nullptr ? std::error_code() : told->Cause());
  }
}

}  // namespace model
