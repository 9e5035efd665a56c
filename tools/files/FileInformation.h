// What the program tells about a source file.
#pragma once

#include <string>
#include <string_view>

namespace tools {

struct FileInformation {
  bool exists = false;
  std::string version;   ///< of its version resource, "1.2.3.4"; empty without one
  std::string dateTime;  ///< last change, local time in the system's form; empty without a file
};

/// Information about the regular file at `path`. Never raises an error: a file that cannot be read
/// has no version.
[[nodiscard]] FileInformation InformationOf(std::string_view path);

}  // namespace tools
