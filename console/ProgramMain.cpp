#include "console/ProgramMain.h"

#include <cstdlib>
#include <exception>
#include <iostream>

#include "console/Platform.h"
#include "tools/Process.h"

namespace console {

namespace {

ExitCode EndOutput(const Streams& streams, const char* name, ExitCode code) {
  streams.output.flush();
  streams.errors.flush();
  if (streams.output && streams.errors) return code;
  streams.errors << name << ": Die Ausgabe kann nicht geschrieben werden." << std::endl;
  return ExitCode::Stopped;
}

}  // namespace

int RunMain(int argc, char** argv, const char* name,
            ExitCode (*run)(const std::vector<std::string>&, const Surroundings&)) {
  try {
    tools::PrepareProcess();
    WatchForInterrupt();
    KeepTimeZone();
    tools::SystemDisk disk;
    const char* const date = std::getenv("SOURCE_DATE_EPOCH");
    const Surroundings surroundings{
        .streams = {std::cout, std::cerr, ErrorsGoToTerminal(), OutputGoesToTerminal()},
        .workingFolder = WorkingFolder(),
        .programFolder = ProgramFolder(),
        .disk = disk,
        .interrupted = WasInterrupted,
        .sourceDate = date != nullptr ? date : ""};
    const ExitCode code = run(ProgramArguments(argc, argv), surroundings);
    return static_cast<int>(EndOutput(surroundings.streams, name, code));
  } catch (const std::exception& error) {
    std::cerr << name << ": " << error.what() << '\n';
    return static_cast<int>(ExitCode::Stopped);
  }
}

}  // namespace console
