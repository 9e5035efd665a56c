// The end of a call: was everything that it said really written?
#pragma once

#include <string_view>

#include "console/Report.h"

namespace console {

/// `code`, or Stopped when not all of what was written to the streams could be; a line on standard
/// error then says so in the name of `program`.
[[nodiscard]] ExitCode EndOutput(const Streams& streams, std::string_view program, ExitCode code);

}  // namespace console
