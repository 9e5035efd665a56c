// What the program tells about a source file.
//
// Sources for the version: Microsoft's "PE Format" (headers, section table, resource directory) and
// "VERSIONINFO resource" (VS_VERSIONINFO, VS_FIXEDFILEINFO).
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tools {

struct FileInformation {
  bool exists = false;
  std::string version;   ///< of its version resource (PeVersionText); empty without one
  std::string dateTime;  ///< last change, local time in the system's form; empty without a file
};

/// Information about the regular file at `path`. Never raises an error: a file that cannot be read
/// has no version.
[[nodiscard]] FileInformation InformationOf(std::string_view path);

/// Gives `size` bytes of a file from `offset` on; fewer (or none) where the file ends before.
using ReadBytesAt = std::function<std::string(std::uint64_t offset, std::size_t size)>;

/// The file version in the fixed part of a PE32 or PE32+ file's version resource, as its four
/// numbers "1.2.3.4"; empty for a file of another kind, without that resource, or malformed.
/// Whatever the bytes are, it asks for less than 3 MiB at a time and ends soon.
[[nodiscard]] std::string PeVersionText(const ReadBytesAt& read);

}  // namespace tools
