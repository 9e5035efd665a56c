#include "tests/support/TemporaryFolder.h"

#include <fstream>
#include <random>

#include "tools/files/Files.h"
#include "tools/files/Path.h"

namespace tests {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  do {
    const std::string name = std::to_string(random()) + "-" + std::to_string(random());
    path_ = fs::canonical(fs::temp_directory_path()) / ("packwright-test-" + name);
  } while (!fs::create_directory(path_));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::string TemporaryFolder::Path(std::string_view name) const {
  fs::path path = name.empty() ? path_ : path_ / tools::ToPath(name);
  return tools::FromPath(path.make_preferred());
}

std::string TemporaryFolder::Write(std::string_view name, std::string_view content) const {
  const fs::path path = path_ / tools::ToPath(name);
  fs::create_directories(path.parent_path());
  std::ofstream file;
  file.exceptions(std::ios::failbit | std::ios::badbit);
  file.open(path, std::ios::binary);
  file.write(content.data(), static_cast<std::streamsize>(content.size()));
  file.close();
  return Path(name);
}

std::string TemporaryFolder::MakeFolder(std::string_view name) const {
  fs::create_directories(path_ / tools::ToPath(name));
  return Path(name);
}

std::string TemporaryFolder::Read(std::string_view name) const {
  return tools::ReadWholeFile(Path(name));
}

bool TemporaryFolder::Holds(std::string_view name) const {
  return fs::exists(fs::symlink_status(path_ / tools::ToPath(name)));
}

}  // namespace tests
