// packwright-setup as a function of its arguments and surroundings.
#pragma once

#include <string>
#include <vector>

#include "console/Program.h"

namespace console {

/// Runs one call and returns its exit code. Never raises tools::Error.
[[nodiscard]] ExitCode RunSetupProgram(const std::vector<std::string>& arguments,
                                       const Surroundings& surroundings);

}  // namespace console
