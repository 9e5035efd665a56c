// What a call of packwright-build asks for.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "engine/BuildObserver.h"

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace console {

/// The exit codes that scripts can rely on.
enum class ExitCode {
  Built = 0,            ///< built (or checked) without errors
  BuiltWithErrors = 1,  ///< built, with errors in the log; or the check found something
  BadCall = 2,          ///< bad usage, no such product, unknown format or version
  Stopped = 3           ///< refused or stopped: settings that cannot be read, output folder invalid
                        ///< or not empty, disk full
};

struct CommandLine {
  std::string product;  ///< path of the product file
  std::string version;  ///< version text; empty only with `list`
  /// Output folder as it was typed; without one the active configuration's is taken.
  std::optional<std::string> output;
  bool zip = true;         ///< one archive instead of a folder tree
  bool wrapper = false;    ///< add the setup program
  bool runtime = false;    ///< add the runtime's installer
  bool overwrite = false;  ///< replace an earlier setup in the output folder
  bool force = false;      ///< replace whatever the output folder holds
  bool check = false;      ///< look for problems, write nothing
  engine::Compression compression = engine::Compression::Normal;
  bool fresh = false;    ///< pack everything anew
  int threads = 0;       ///< that pack; 0: one for each processor
  bool strict = false;   ///< warnings count as errors in the exit code
  bool confine = false;  ///< nothing outside the product's folder is read or written
  bool prove = false;    ///< prove the setup after the build
  bool json = false;     ///< one JSON object a line instead of text
  bool quiet = false;    ///< no progress and no summary
  bool list = false;     ///< list versions and components
};

/// Reads the arguments (UTF-8, without the program's name). Without a result the call ends here
/// with `exitCode`: help and version go to `output`, what is wrong with the call to `errors`.
[[nodiscard]] std::optional<CommandLine> ParseCommandLine(const std::vector<std::string>& arguments,
                                                          std::ostream& output,
                                                          std::ostream& errors, ExitCode& exitCode);

// The options library's own words in German, for the command lines of both programs.

/// Gives the help of `app` German headings, and `footer` behind it. Flags take no value then.
void LabelInGerman(CLI::App& app, const std::string& footer);

/// What is wrong with a call.
[[nodiscard]] std::string GermanText(const CLI::ParseError& error);

}  // namespace console
