// A regular file open for reading at any place, several threads at a time each with its own.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "tools/Files.h"

namespace tools {

class InputFile {
 public:
  /// Opens the file. Raises Error naming the path when it cannot be read or is not a regular file.
  explicit InputFile(const std::string& path);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  /// Size, time and identity as they are now. Raises Error.
  [[nodiscard]] FileStamp Stamp() const;

  /// Fills `buffer` from the bytes at `offset`; returns how many there were, fewer than asked for
  /// only where the file ends. Raises Error.
  [[nodiscard]] std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace tools
