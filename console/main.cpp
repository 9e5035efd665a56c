// packwright-build: builds a version of a product into a setup without a display.
#include <exception>
#include <iostream>

#include "console/Platform.h"
#include "console/Program.h"
#include "tools/Process.h"

int main(int argc, char** argv) {
  try {
    tools::PrepareProcess();
    console::WatchForInterrupt();
    tools::SystemDisk disk;
    const console::Surroundings surroundings{
        .streams = {std::cout, std::cerr, console::ErrorsGoToTerminal()},
        .workingFolder = console::WorkingFolder(),
        .programFolder = console::ProgramFolder(),
        .disk = disk,
        .interrupted = console::WasInterrupted};
    return static_cast<int>(
        console::RunProgram(console::ProgramArguments(argc, argv), surroundings));
  } catch (const std::exception& error) {
    std::cerr << "packwright-build: " << error.what() << '\n';
    return static_cast<int>(console::ExitCode::Stopped);
  }
}
