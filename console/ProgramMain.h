// What main does, the same for both programs.
#pragma once

#include <string>
#include <vector>

#include "console/Program.h"

namespace console {

/// Runs `run` with the arguments and surroundings of this process; returns its exit status. When
/// not all of what was written to the streams could be, that is Stopped, and a line on standard
/// error says so in the name of the program, `name`.
[[nodiscard]] int RunMain(int argc, char** argv, const char* name,
                          ExitCode (*run)(const std::vector<std::string>&, const Surroundings&));

}  // namespace console
