// What a call of packwright-setup asks for.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "console/CommandLine.h"

namespace console {

struct SetupCommandLine {
  enum class Command { List, Unpack, Prove, Compare };
  Command command = Command::List;
  std::string setup;     ///< output folder or script
  std::string into;      ///< folder of a test installation
  std::string product;   ///< product file of a proof
  std::string version;   ///< and its version
  std::string newSetup;  ///< what `setup` is compared with
  bool json = false;     ///< one JSON object a line instead of text
  bool quiet = false;    ///< only rows and findings
};

/// Reads the arguments (UTF-8, without the program's name). Without a result the call ends here
/// with `exitCode`: help and version go to `output`, what is wrong with the call to `errors`.
[[nodiscard]] std::optional<SetupCommandLine> ParseSetupCommandLine(
    const std::vector<std::string>& arguments, std::ostream& output, std::ostream& errors,
    ExitCode& exitCode);

}  // namespace console
