// packwright-build: builds a version of a product into a setup without a display.
#include "console/Call.h"

int main(int argc, char** argv) {
  return console::RunMain(argc, argv, "packwright-build", console::RunProgram);
}
