// packwright-setup: says what a finished setup does, without the runtime that it is made for.
#include <exception>
#include <iostream>

#include "console/OutputEnd.h"
#include "console/Platform.h"
#include "console/setup/SetupProgram.h"
#include "tools/Process.h"

int main(int argc, char** argv) {
  try {
    tools::PrepareProcess();
    console::WatchForInterrupt();
    tools::SystemDisk disk;
    const console::Surroundings surroundings{
        .streams = {std::cout, std::cerr, console::ErrorsGoToTerminal(),
                    console::OutputGoesToTerminal()},
        .workingFolder = console::WorkingFolder(),
        .programFolder = console::ProgramFolder(),
        .disk = disk,
        .interrupted = console::WasInterrupted};
    const console::ExitCode code =
        console::RunSetupProgram(console::ProgramArguments(argc, argv), surroundings);
    return static_cast<int>(console::EndOutput(surroundings.streams, "packwright-setup", code));
  } catch (const std::exception& error) {
    std::cerr << "packwright-setup: " << error.what() << '\n';
    return static_cast<int>(console::ExitCode::Stopped);
  }
}
