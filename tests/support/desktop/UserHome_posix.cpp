#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "tests/support/desktop/UserHome.h"

namespace tests {

namespace {

// As Wine writes names in its registry files: UTF-16 numbers for what is not ASCII.
std::string Escaped(const std::string& name) {
  std::string escaped;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const auto byte = static_cast<unsigned char>(name[i]);
    if (byte >= 0xE0) throw std::logic_error("no test needs this character yet");
    if (byte == '\\') {
      escaped += "\\\\";
    } else if (byte < 0x80) {
      escaped += name[i];
    } else {
      char number[8];
      const unsigned low = static_cast<unsigned char>(name[++i]) & 0x3FU;
      std::snprintf(number, sizeof(number), "\\x%04x", (byte & 0x1FU) << 6U | low);
      escaped += number;
    }
  }
  return escaped;
}

}  // namespace

void UseHome(const TemporaryFolder& folder) {
  for (const char* name : {"HOME", "XDG_CONFIG_HOME"}) setenv(name, folder.Path().c_str(), 1);
  folder.Write(".wine/system.reg",
               "WINE REGISTRY Version 2\n;; All keys relative to REGISTRY\\\\Machine\n");
}

void MakeMachineKey(const std::string& path, const std::vector<std::string>& valueNames) {
  std::ofstream file(std::string(std::getenv("HOME")) + "/.wine/system.reg", std::ios::app);
  file << "\n[" << Escaped(path) << "] 1795238516\n";
  for (const std::string& name : valueNames) file << '"' << Escaped(name) << "\"=\"\"\n";
  if (!file.flush()) throw std::runtime_error("cannot write the registry of " + path);
}

}  // namespace tests
