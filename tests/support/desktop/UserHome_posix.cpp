#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "tests/support/desktop/UserHome.h"
#include "tools/Text.h"

namespace tests {

void UseHome(const TemporaryFolder& folder) {
  for (const char* name : {"HOME", "XDG_CONFIG_HOME"}) setenv(name, folder.Path().c_str(), 1);
  folder.Write(".wine/system.reg",
               "WINE REGISTRY Version 2\n;; All keys relative to REGISTRY\\\\Machine\n");
}

void MakeMachineKey(const std::string& path, const std::vector<std::string>& valueNames) {
  std::ofstream file(std::string(std::getenv("HOME")) + "/.wine/system.reg", std::ios::app);
  file << "\n[" << tools::ReplaceAll(path, "\\", "\\\\") << "] 1795238516\n";
  for (const std::string& name : valueNames) file << '"' << name << "\"=\"\"\n";
  if (!file.flush()) throw std::runtime_error("cannot write the registry of " + path);
}

}  // namespace tests
