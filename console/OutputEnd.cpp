#include "console/OutputEnd.h"

#include <ostream>

namespace console {

ExitCode EndOutput(const Streams& streams, std::string_view program, ExitCode code) {
  streams.output.flush();
  streams.errors.flush();
  if (streams.output && streams.errors) return code;
  streams.errors << program << ": Die Ausgabe kann nicht geschrieben werden." << std::endl;
  return ExitCode::Stopped;
}

}  // namespace console
