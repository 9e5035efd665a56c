// A folder of a test's own, gone when the test ends.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

#include "tools/files/Files.h"
#include "tools/files/InputFile.h"
#include "tools/files/Path.h"

namespace tests {

/// Created empty, under a name that no other test has, inside the system's temporary folder. The
/// destructor removes it with all its contents. Names below it may hold "/" on every machine.
/// Failures raise a std::exception.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::random_device random;
    do {
      const std::string name = std::to_string(random()) + "-" + std::to_string(random());
      path_ = std::filesystem::canonical(std::filesystem::temp_directory_path()) /
              ("packwright-test-" + name);
    } while (!std::filesystem::create_directory(path_));
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// The absolute path of something in the folder, or of the folder itself, with the machine's
  /// separators and none at its end.
  [[nodiscard]] std::string Path(std::string_view name = {}) const {
    std::filesystem::path path = name.empty() ? path_ : path_ / tools::ToPath(name);
    return tools::FromPath(path.make_preferred());
  }
  /// Creates or replaces a file (and the folders above it) with these bytes; returns its path.
  std::string Write(std::string_view name, std::string_view content) const {
    const std::filesystem::path path = path_ / tools::ToPath(name);
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file;
    file.exceptions(std::ios::failbit | std::ios::badbit);
    file.open(path, std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    return Path(name);
  }
  /// Creates a folder (and those above it); returns its path.
  std::string MakeFolder(std::string_view name) const {
    std::filesystem::create_directories(path_ / tools::ToPath(name));
    return Path(name);
  }
  /// The bytes of a file.
  [[nodiscard]] std::string Read(std::string_view name) const {
    return tools::ReadWholeFile(Path(name));
  }
  /// True when the folder holds a file or folder of that name.
  [[nodiscard]] bool Holds(std::string_view name) const {
    return std::filesystem::exists(std::filesystem::symlink_status(path_ / tools::ToPath(name)));
  }

 private:
  std::filesystem::path path_;
};

}  // namespace tests
