// A folder of a test's own, gone when the test ends.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tests {

/// Created empty, under a name that no other test has, inside the system's temporary folder. The
/// destructor removes it with all its contents. Names below it may hold "/" on every machine.
/// Failures raise a std::exception.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// The absolute path of something in the folder, or of the folder itself, with the machine's
  /// separators and none at its end.
  [[nodiscard]] std::string Path(std::string_view name = {}) const;
  /// Creates or replaces a file (and the folders above it) with these bytes; returns its path.
  std::string Write(std::string_view name, std::string_view content) const;
  /// Creates a folder (and those above it); returns its path.
  std::string MakeFolder(std::string_view name) const;
  /// The bytes of a file.
  [[nodiscard]] std::string Read(std::string_view name) const;
  /// True when the folder holds a file or folder of that name.
  [[nodiscard]] bool Holds(std::string_view name) const;

 private:
  std::filesystem::path path_;
};

}  // namespace tests
