// A regular file open for reading at any place, several threads at a time each with its own.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "tools/files/Files.h"

namespace tools {

class InputFile {
 public:
  /// What opening does while another program holds the file so that nobody may read it (on Windows
  /// virus scanners and indexers do, for moments).
  enum class WhenHeld {
    Fail,
    Wait  ///< tries again for about a second
  };

  /// Opens the file. Raises Error naming the path when it cannot be read or is not a regular file.
  explicit InputFile(const std::string& path, WhenHeld whenHeld = WhenHeld::Fail);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  /// Size, time and identity as they are now. Raises Error.
  [[nodiscard]] FileStamp Stamp() const;

  /// The same, where a Stamp equal to it later says that nothing has changed meanwhile; nothing
  /// when the file is changing all the time. May wait for some milliseconds. Raises Error.
  [[nodiscard]] std::optional<FileStamp> SteadyStamp() const;

  /// Fills `buffer` from the bytes at `offset`; returns how many there were, fewer than asked for
  /// only where the file ends. Raises Error.
  [[nodiscard]] std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// The bytes of `file`, of which about `expectedBytes` are expected; nothing when there are more
/// than `maximumBytes`. Raises Error.
[[nodiscard]] std::optional<std::string> ReadToEnd(const InputFile& file, std::size_t expectedBytes,
                                                   std::size_t maximumBytes);

}  // namespace tools
