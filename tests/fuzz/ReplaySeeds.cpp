// The main of a fuzz target in builds without libFuzzer: feeds it the files of a folder.
#include <filesystem>
#include <iostream>

#include "tests/fuzz/Fuzz.h"
#include "tools/files/InputFile.h"
#include "tools/files/Path.h"

int main(int /*argc*/, char** argv) {
  int seeds = 0;
  for (const auto& entry :
       std::filesystem::directory_iterator(std::filesystem::absolute(argv[1]))) {
    const std::string path = tools::FromPath(entry.path());
    std::cout << path << std::endl;
    tests::Fuzz(tools::ReadWholeFile(path));
    ++seeds;
  }
  return seeds > 0 ? 0 : 1;
}
