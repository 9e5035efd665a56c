#include "setup/ContentProof.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <exception>
#include <mutex>
#include <thread>

#include "tools/Error.h"
#include "tools/files/InputFile.h"

namespace setup {

namespace {

constexpr std::chrono::milliseconds kProgressInterval{100};

/// Thrown where a file and its source part, so that the rest need not be read.
struct Different {
  std::uint64_t offset;
};

/// A source that is read as far as its copy is unpacked.
class Source {
 public:
  explicit Source(const std::string& path) : file_(path) {}

  void Compare(std::string_view copy, std::string& buffer) {
    buffer.resize(copy.size());
    const std::size_t count = file_.ReadAt(offset_, buffer);
    if (std::memcmp(buffer.data(), copy.data(), count) != 0 || count < copy.size()) {
      const auto parting = std::mismatch(
          copy.begin(), copy.begin() + static_cast<std::ptrdiff_t>(count), buffer.begin());
      throw Different{offset_ + static_cast<std::uint64_t>(parting.first - copy.begin())};
    }
    offset_ += count;
  }
  void RequireEnd() {
    char next = 0;
    if (file_.ReadAt(offset_, {&next, 1}) > 0) throw Different{offset_};
  }

 private:
  tools::InputFile file_;
  std::uint64_t offset_ = 0;
};

class Comparison {
 public:
  Comparison(const Setup& setup, const ExpectedSetup& expected,
             const std::vector<ExpectedFile>& files, tools::Progress& progress)
      : setup_(setup), expected_(expected), files_(files), progress_(progress) {}

  void Run(unsigned threads, const std::function<void(const tools::Progress&)>& onProgress) {
    running_ = threads;
    std::vector<std::jthread> workers;
    try {
      for (unsigned i = 0; i < threads; ++i) workers.emplace_back([this] { Work(); });
      Wait(onProgress);
    } catch (...) {
      stop_ = true;
      throw;
    }
    workers.clear();
    if (failure_) std::rethrow_exception(failure_);
  }

  std::vector<ContentFault> TakeFaults() {
    std::ranges::sort(faults_, {}, &ContentFault::file);
    return std::move(faults_);
  }

 private:
  void Wait(const std::function<void(const tools::Progress&)>& onProgress) {
    std::unique_lock lock(mutex_);
    while (running_ > 0) {
      ended_.wait_for(lock, kProgressInterval);
      const tools::Progress progress = progress_;
      lock.unlock();
      onProgress(progress);
      lock.lock();
    }
  }

  void Work() {
    try {
      ContentReader reader(setup_);
      std::string buffer;
      for (std::uint32_t i = next_++; i < files_.size() && !stop_; i = next_++) {
        if (files_[i].planned != ExpectedFile::kNotPlanned) CompareFile(i, reader, buffer);
      }
    } catch (...) {
      const std::lock_guard lock(mutex_);
      if (!stop_) failure_ = std::current_exception();
      stop_ = true;
    }
    const std::lock_guard lock(mutex_);
    --running_;
    ended_.notify_one();
  }

  void CompareFile(std::uint32_t i, ContentReader& reader, std::string& buffer) {
    const std::string& path = expected_.entries[files_[i].entry].sources[files_[i].source];
    try {
      Source source(path);
      reader.Read(setup_.plan.files[files_[i].planned], [&](std::string_view copy) {
        source.Compare(copy, buffer);
        Count(0, copy.size());
      });
      source.RequireEnd();
    } catch (const Different& different) {
      AddFault(i, "Der Inhalt weicht ab Byte " + std::to_string(different.offset) +
                      " von der Quelle ab: " + path);
    } catch (const tools::Error& error) {
      AddFault(i, error.what());
    }
    Count(1, 0);
  }

  void Count(std::uint64_t files, std::uint64_t bytes) {
    const std::lock_guard lock(mutex_);
    if (stop_) throw Stopped();
    progress_.filesDone += files;
    progress_.bytesDone += bytes;
  }
  void AddFault(std::uint32_t file, std::string text) {
    const std::lock_guard lock(mutex_);
    faults_.push_back({file, std::move(text)});
  }

  /// Ends a thread after another one failed or the caller wants it.
  struct Stopped {};

  const Setup& setup_;
  const ExpectedSetup& expected_;
  const std::vector<ExpectedFile>& files_;
  std::atomic<std::uint32_t> next_ = 0;
  std::atomic<bool> stop_ = false;

  std::mutex mutex_;  // guards what follows
  std::condition_variable ended_;
  unsigned running_ = 0;
  tools::Progress& progress_;
  std::vector<ContentFault> faults_;
  std::exception_ptr failure_;
};

}  // namespace

std::vector<ContentFault> CompareContents(
    const Setup& setup, const ExpectedSetup& expected, const std::vector<ExpectedFile>& files,
    unsigned threads, tools::Progress& progress,
    const std::function<void(const tools::Progress&)>& onProgress) {
  Comparison comparison(setup, expected, files, progress);
  comparison.Run(std::max(1U, threads), onProgress);
  return comparison.TakeFaults();
}

}  // namespace setup
