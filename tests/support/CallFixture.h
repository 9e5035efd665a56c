// Calls of the console programs on the product of a BuildFixture.
#pragma once

#include <sstream>

#include "console/Program.h"
#include "tests/support/BuildFixture.h"

namespace tests {

class CallFixture : public BuildFixture {
 protected:
  /// Calls a program; what it says is in output_ and errors_ then.
  template <typename Program>
  console::ExitCode Call(const Program& program, const std::vector<std::string>& arguments,
                         bool isTerminal = false) {
    std::ostringstream output;
    std::ostringstream errors;
    const console::ExitCode code = program(
        arguments, console::Surroundings{.streams = {output, errors, isTerminal, isTerminal},
                                         .workingFolder = folder_.Path(),
                                         .programFolder = folder_.Path("programm"),
                                         .disk = disk_,
                                         .interrupted = interrupted_,
                                         .sourceDate = sourceDate_});
    output_ = output.str();
    errors_ = errors.str();
    return code;
  }

  std::string output_;
  std::string errors_;
  std::string sourceDate_;
  console::Report::InterruptTest interrupted_ = [] { return false; };
};

}  // namespace tests
