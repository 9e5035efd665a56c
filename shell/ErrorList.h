// Errors of an operation that goes on after each of them.
#pragma once

#include <concepts>
#include <exception>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tools/Dialogs.h"

namespace shell {

class ErrorList {
 public:
  /// Runs `step`; keeps the description of an exception that ends it, each description once.
  template <std::invocable Step>
  void Try(Step&& step) {
    try {
      std::invoke(std::forward<Step>(step));
    } catch (const std::exception& error) {
      Add(error.what());
    }
  }

  /// Shows all errors in one message, the first ones in full; nothing when there is none.
  void Show(tools::Dialogs& dialogs) const;

 private:
  void Add(const std::string& description);

  std::vector<std::string> descriptions_;
};

}  // namespace shell
