// Reads the sources of an archive before their turn where reading is slow: on a network folder, or
// from a disk that has them in no cache, most of the time goes into waiting for one file after the
// other.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tools/archive/ByteBuffer.h"
#include "tools/files/Files.h"

namespace tools {

/// Reads small sources: one by one, until more than a quarter of sixteen are slow, and from then on
/// several at a time, some files ahead of the one that is asked for. What is in the system's cache
/// is read best one by one: more threads only take the processors from those that pack. Memory is
/// bounded, whatever the number of sources.
class ReadAhead {
 public:
  /// Gives the full paths in the order in which they will be asked for, and an empty one behind the
  /// last. Called by one thread at a time, but not always by the same; what it gives has to live as
  /// long as the reader.
  using NextSource = std::function<std::string_view()>;
  /// Called every few hundredths of a second; what it raises ends the wait.
  using WaitCallback = std::function<void()>;
  using Duration = std::chrono::steady_clock::duration;

  /// A file that takes longer counts as slow: a cached one takes about a quarter of it.
  static constexpr Duration kPatience = std::chrono::microseconds(60);

  explicit ReadAhead(NextSource next, Duration patience = kPatience);
  /// Waits for the files that are being read.
  ~ReadAhead();
  ReadAhead(const ReadAhead&) = delete;
  ReadAhead& operator=(const ReadAhead&) = delete;

  /// Appends the bytes of the source at `path`, which has to be the next one, and returns its time
  /// of change; both are of one moment since the reader was made. Nothing is appended or returned
  /// where the caller has to read it: when it is large, changes or cannot be read. Raises
  /// std::logic_error when another source is the next one, and std::bad_alloc.
  [[nodiscard]] std::optional<FileTime> AppendNext(const std::string& path, ByteBuffer& content,
                                                   const WaitCallback& whileWaiting);

 private:
  // A few files in one go, so that thousands of them do not cost a hand-over each. Not more: they
  // are read one after the other while the one who asked for the first of them may wait.
  struct Batch {
    struct Item {
      std::string_view path;
      std::size_t end = 0;                 // of its bytes in the content
      std::optional<FileTime> modified{};  // none: not read
    };
    std::vector<Item> items;
    ByteBuffer content;
    bool isComplete = false;
    std::size_t taken = 0;  // items
  };

  [[nodiscard]] std::optional<FileTime> ReadNow(const std::string& path, ByteBuffer& content);
  void StartThreads();
  void Work(const std::stop_token& stop);
  [[nodiscard]] Batch* Begin(const std::stop_token& stop);
  void WaitForBatch(const WaitCallback& whileWaiting);
  [[nodiscard]] bool IsBatchReady() const;

  NextSource next_;
  Duration patience_;
  std::size_t readNow_ = 0;
  std::size_t slow_ = 0;  // of the last of those
  std::unique_ptr<Batch> current_;

  std::mutex mutex_;  // guards what follows, and next_ once there are threads
  std::condition_variable_any forReaders_;
  std::condition_variable forCaller_;
  std::deque<std::unique_ptr<Batch>> batches_;  // in order
  std::vector<ByteBuffer> idle_;                // of batches that were taken
  bool isAtEnd_ = false;
  std::exception_ptr failure_;

  std::vector<std::jthread> threads_;
};

}  // namespace tools
