// Keeps pieces of text at fixed addresses, many to an allocation.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace tools {

class TextArena {
 public:
  /// Room for `size` characters, not initialized, that stays as long as the arena: right behind the
  /// room before it, as long as the block lasts.
  [[nodiscard]] char* Allocate(std::size_t size) {
    constexpr std::size_t kBlockBytes = std::size_t{64} << 10U;
    if (size > freeSize_) {
      freeSize_ = std::max(size, kBlockBytes);
      free_ = blocks_.emplace_back(new char[freeSize_]).get();
    }
    char* const room = free_;
    free_ += size;
    freeSize_ -= size;
    return room;
  }

 private:
  std::vector<std::unique_ptr<char[]>> blocks_;
  char* free_ = nullptr;
  std::size_t freeSize_ = 0;
};

}  // namespace tools
