#include "tools/archive/ReadAhead.h"

#include <stdexcept>
#include <system_error>
#include <utility>

#include "tools/archive/SteadySource.h"

namespace tools {

namespace {

// More than processors: the threads mostly wait.
constexpr int kThreads = 4;
constexpr std::size_t kBatchFiles = 4;
constexpr std::size_t kMostBatches = 8;
constexpr std::size_t kLargestSource = std::size_t{128} << 10U;
constexpr std::size_t kSample = 16;  // files that tell whether reading is slow
constexpr std::chrono::milliseconds kLongestSilence{50};

// Appends the whole of a small source; leaves `content` as it was when that cannot be done.
std::optional<FileTime> AppendSmall(const std::string& path, ByteBuffer& content) {
  SteadySource source(path);
  if (!source.Begin() || source.Stamp().size > kLargestSource) return std::nullopt;
  const std::size_t before = content.Size();
  if (source.AppendTo(content, kLargestSource) && source.IsUnchanged()) {
    return source.Stamp().modified;
  }
  content.CutTo(before);
  return std::nullopt;
}

}  // namespace

ReadAhead::ReadAhead(NextSource next, Duration patience)
    : next_(std::move(next)), patience_(patience) {}

// All of them are told before one is waited for.
ReadAhead::~ReadAhead() {
  for (std::jthread& thread : threads_) thread.request_stop();
  threads_.clear();
}

std::optional<FileTime> ReadAhead::AppendNext(const std::string& path, ByteBuffer& content,
                                              const WaitCallback& whileWaiting) {
  if (threads_.empty()) return ReadNow(path, content);
  if (!current_ || current_->taken == current_->items.size()) WaitForBatch(whileWaiting);
  const std::size_t begin = current_->taken > 0 ? current_->items[current_->taken - 1].end : 0;
  const Batch::Item& item = current_->items[current_->taken++];
  if (item.path != path) throw std::logic_error("a source is not the next one: " + path);
  content.Append(current_->content.View().substr(begin, item.end - begin));
  return item.modified;
}

std::optional<FileTime> ReadAhead::ReadNow(const std::string& path, ByteBuffer& content) {
  if (next_() != path) throw std::logic_error("a source is not the next one: " + path);
  const auto begun = std::chrono::steady_clock::now();
  const std::optional<FileTime> modified = AppendSmall(path, content);
  // Each for itself: a sum would also grow while another program has the processor.
  if (std::chrono::steady_clock::now() - begun > patience_) ++slow_;
  if (++readNow_ % kSample == 0) {
    if (slow_ > kSample / 4) StartThreads();
    slow_ = 0;
  }
  return modified;
}

void ReadAhead::StartThreads() {
  try {
    for (int i = 0; i < kThreads; ++i) {
      threads_.emplace_back([this](const std::stop_token& stop) { Work(stop); });
    }
  } catch (const std::system_error&) {
    // With fewer threads, or none, the sources are read all the same.
    patience_ = Duration::max();
  }
}

// Returns with a batch that holds something. Raises what ended a reader.
void ReadAhead::WaitForBatch(const WaitCallback& whileWaiting) {
  std::unique_lock lock(mutex_);
  if (current_) {
    current_->content.CutTo(0);
    idle_.push_back(std::move(current_->content));
    current_.reset();
  }
  while (!forCaller_.wait_for(lock, kLongestSilence, [this] { return IsBatchReady(); })) {
    lock.unlock();
    whileWaiting();
    lock.lock();
  }
  if (failure_) std::rethrow_exception(failure_);
  if (batches_.empty()) throw std::logic_error("more sources than there should be");
  current_ = std::move(batches_.front());
  batches_.pop_front();
  lock.unlock();
  forReaders_.notify_one();
}

// Or there will be none.
bool ReadAhead::IsBatchReady() const {
  if (failure_) return true;
  return batches_.empty() ? isAtEnd_ : batches_.front()->isComplete;
}

void ReadAhead::Work(const std::stop_token& stop) {
  try {
    while (Batch* const batch = Begin(stop)) {
      for (Batch::Item& item : batch->items) {
        if (stop.stop_requested()) return;
        item.modified = AppendSmall(std::string(item.path), batch->content);
        item.end = batch->content.Size();
      }
      const std::lock_guard lock(mutex_);
      batch->isComplete = true;
      forCaller_.notify_one();
    }
  } catch (...) {
    const std::lock_guard lock(mutex_);
    failure_ = std::current_exception();
    forCaller_.notify_one();
  }
}

// The next sources, for one thread; null: there are no more, or it has to stop.
ReadAhead::Batch* ReadAhead::Begin(const std::stop_token& stop) {
  std::unique_lock lock(mutex_);
  const auto mayBegin = [this] { return isAtEnd_ || batches_.size() < kMostBatches; };
  if (!forReaders_.wait(lock, stop, mayBegin)) return nullptr;
  auto batch = std::make_unique<Batch>();
  if (!idle_.empty()) {
    batch->content = std::move(idle_.back());
    idle_.pop_back();
  }
  while (!isAtEnd_ && batch->items.size() < kBatchFiles) {
    const std::string_view path = next_();
    isAtEnd_ = path.empty();
    if (!isAtEnd_) batch->items.push_back({.path = path});
  }
  if (isAtEnd_) {
    forReaders_.notify_all();
    forCaller_.notify_one();
  }
  if (batch->items.empty()) return nullptr;
  return batches_.emplace_back(std::move(batch)).get();
}

}  // namespace tools
