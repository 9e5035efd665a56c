// A source as it is at one moment, read once from its begin to its end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <system_error>

#include "tools/archive/ByteBuffer.h"
#include "tools/files/InputFile.h"

namespace tools {

/// Nothing here raises an error: Cause tells what went wrong.
class SteadySource {
 public:
  /// Opens the file.
  explicit SteadySource(const std::string& path);

  /// Begins to read at the file's begin. False when it cannot be read, or never holds still.
  [[nodiscard]] bool Begin();
  /// The file's size, time and identity at that moment.
  [[nodiscard]] const FileStamp& Stamp() const { return stamp_; }

  /// Appends everything to `content`; false when it cannot be read, or is more than `maximumBytes`.
  /// It may be more than the stamp says, in a file whose size the system hides.
  [[nodiscard]] bool AppendTo(ByteBuffer& content, std::size_t maximumBytes);
  /// Appends the next bytes to `content`, `bytes` of them or as many as are left; false when they
  /// cannot be read or are not there any more.
  [[nodiscard]] bool AppendNext(ByteBuffer& content, std::size_t bytes);
  /// True when nothing follows what has been read.
  [[nodiscard]] bool IsAtEnd();
  /// True when the file is still what it was at Begin.
  [[nodiscard]] bool IsUnchanged();

  /// The system's reason for what cannot be read; none when the file only changed.
  [[nodiscard]] std::error_code Cause() const { return cause_; }

 private:
  template <typename Action>
  void Try(const Action& action);

  std::unique_ptr<InputFile> file_;
  FileStamp stamp_;
  std::uint64_t at_ = 0;
  std::error_code cause_;
};

}  // namespace tools
