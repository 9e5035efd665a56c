// Reading files: at any place, or whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "tools/files/Files.h"

namespace tools {

/// A regular file open for reading. Several threads may read one at the same time.
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
  /// A stamp from which any later change can be told: as long as Stamp gives the same, the content
  /// is the same. Nothing when the file is changing all the time. May wait for some milliseconds.
  /// Raises Error.
  [[nodiscard]] std::optional<FileStamp> SteadyStamp() const;
  /// Fills `buffer` from the bytes at `offset`; returns how many there were, fewer than asked for
  /// only where the file ends. Raises Error.
  [[nodiscard]] std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) const;
  /// As ReadAt, but asks the system once: fewer bytes than asked for are no proof of the end.
  [[nodiscard]] std::size_t ReadSome(std::uint64_t offset, std::span<char> buffer) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// The bytes of `file`, of which about `expectedBytes` are expected; nothing when there are more
/// than `maximumBytes`. Raises Error.
[[nodiscard]] std::optional<std::string> ReadToEnd(const InputFile& file, std::size_t expectedBytes,
                                                   std::size_t maximumBytes);

/// The whole content of a regular file. Raises Error.
[[nodiscard]] std::string ReadWholeFile(std::string_view path);

/// A small file as it was at one moment.
struct FileContent {
  std::string bytes;
  FileTime modified{};
};
/// Reads a regular file to its end; gives nothing when it has more than `maximumBytes`. A file that
/// another program changes meanwhile is read once more. Raises Error naming the path, with the
/// system's cause or kChangesMeanwhile.
[[nodiscard]] std::optional<FileContent> ReadFileUpTo(const std::string& path,
                                                      std::size_t maximumBytes);

}  // namespace tools
