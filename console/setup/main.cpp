// packwright-setup: says what a finished setup does, without the runtime that it is made for.
#include "console/Call.h"
#include "console/setup/SetupProgram.h"

int main(int argc, char** argv) {
  return console::RunMain(argc, argv, "packwright-setup", console::RunSetupProgram);
}
