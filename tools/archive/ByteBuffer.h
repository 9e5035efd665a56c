// Room for bytes that grows, without filling what nothing was read into.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <mutex>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace tools {

/// Many small files are read into one such buffer: a string for each would be allocated on one
/// thread and freed on another, and filled with zeros before it is read into.
class ByteBuffer {
 public:
  ByteBuffer() = default;
  ~ByteBuffer() = default;
  ByteBuffer(ByteBuffer&& other) noexcept { Swap(other); }
  ByteBuffer& operator=(ByteBuffer&& other) noexcept {
    ByteBuffer moved(std::move(other));
    Swap(moved);
    return *this;
  }
  ByteBuffer(const ByteBuffer&) = delete;
  ByteBuffer& operator=(const ByteBuffer&) = delete;

  [[nodiscard]] std::size_t Size() const { return size_; }
  [[nodiscard]] std::size_t Capacity() const { return capacity_; }
  [[nodiscard]] std::string_view View() const { return {bytes_.get(), size_}; }

  /// Room for so many bytes behind the present ones, with anything in it; valid until the next
  /// call.
  [[nodiscard]] std::span<char> Room(std::size_t bytes) {
    if (bytes > capacity_ - size_) Grow(bytes);
    return {bytes_.get() + size_, bytes};
  }
  /// The first `bytes` of the room given last count from now on.
  void Take(std::size_t bytes) { size_ += bytes; }
  /// Takes back what came behind the first `size` bytes.
  void CutTo(std::size_t size) { size_ = size; }
  void Append(std::string_view bytes) {
    std::ranges::copy(bytes, Room(bytes.size()).begin());
    Take(bytes.size());
  }

 private:
  void Grow(std::size_t bytes) {
    constexpr std::size_t kLeast = std::size_t{640} << 10U;  // what is not used takes no memory
    const std::size_t capacity = std::max({kLeast, capacity_ + capacity_ / 2, size_ + bytes});
    auto larger = std::make_unique_for_overwrite<char[]>(capacity);
    if (size_ > 0) std::memcpy(larger.get(), bytes_.get(), size_);
    bytes_ = std::move(larger);
    capacity_ = capacity;
  }

  void Swap(ByteBuffer& other) noexcept {
    bytes_.swap(other.bytes_);
    std::swap(size_, other.size_);
    std::swap(capacity_, other.capacity_);
  }

  std::unique_ptr<char[]> bytes_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

/// Large buffers that go from reader to packer and back: memory that the system has just given out
/// costs as much time as filling it. For several threads at a time.
class ByteBuffers {
 public:
  /// An empty one, with room in it where there is one that was given back.
  [[nodiscard]] ByteBuffer Take() {
    const std::lock_guard lock(mutex_);
    if (idle_.empty()) return {};
    ByteBuffer buffer = std::move(idle_.back());
    idle_.pop_back();
    return buffer;
  }
  /// Leaves `buffer` without room.
  void GiveBack(ByteBuffer& buffer) {
    constexpr std::size_t kMostIdle = 2;
    ByteBuffer given = std::move(buffer);
    given.CutTo(0);
    const std::lock_guard lock(mutex_);
    if (given.Capacity() > 0 && idle_.size() < kMostIdle) idle_.push_back(std::move(given));
  }

 private:
  std::mutex mutex_;  // guards what follows
  std::vector<ByteBuffer> idle_;
};

}  // namespace tools
