#include "tools/archive/ArchiveWorkers.h"

#include <chrono>
#include <system_error>
#include <utility>

#include "tools/Error.h"
#include "tools/archive/MemberPacker.h"

namespace tools {

namespace {

constexpr std::chrono::milliseconds kWaitCallbackPeriod{50};

}  // namespace

ArchiveWorkers::ArchiveWorkers(const Limits& limits, PackerFactory makePacker)
    : limits_(limits), makePacker_(std::move(makePacker)) {
  // A system that grants only some of the threads makes the archive slower, not impossible.
  try {
    for (int i = 0; i < limits_.threads; ++i) threads_.emplace_back([this] { Work(); });
  } catch (const std::system_error& error) {
    if (threads_.empty()) {
      throw Error("Es kann kein Thread gestartet werden (" + SystemErrorText(error.code()) + ")",
                  error.code());
    }
  }
}

ArchiveWorkers::~ArchiveWorkers() {
  {
    // Under the lock: a worker between its test and its wait would miss the notice.
    const Lock lock(mutex_);
    stop_.request_stop();
  }
  forWorkers_.notify_all();
  for (std::thread& thread : threads_) thread.join();
}

void ArchiveWorkers::Add(std::unique_ptr<ArchiveJob> job, const WaitCallback& whileWaiting) {
  CallerWaits(whileWaiting, [this] { return waitingBytes_ <= limits_.waitingBytes; });
  {
    const Lock lock(mutex_);
    waitingBytes_ += job->WaitingBytes();
    waiting_.push_back(std::move(job));
  }
  forWorkers_.notify_one();
}

void ArchiveWorkers::WaitForAll(const WaitCallback& whileWaiting) {
  CallerWaits(whileWaiting, [this] { return waiting_.empty() && begun_.empty() && !delivering_; });
}

// The callback runs without the lock, so that it may take its time.
template <typename Condition>
void ArchiveWorkers::CallerWaits(const WaitCallback& whileWaiting, const Condition& condition) {
  while (true) {
    RaiseFailure();
    {
      Lock lock(mutex_);
      const auto ready = [&] { return failure_ || condition(); };
      if (forCaller_.wait_for(lock, kWaitCallbackPeriod, ready)) {
        if (failure_) continue;
        return;
      }
    }
    whileWaiting();
  }
}

void ArchiveWorkers::RaiseFailure() {
  if (!failed_) return;  // without the lock, since it is asked for with each file
  const Lock lock(mutex_);
  std::rethrow_exception(failure_);
}

void ArchiveWorkers::Fail(std::exception_ptr failure) {
  {
    const Lock lock(mutex_);
    if (!failure_) failure_ = std::move(failure);  // later ones are mostly its consequences
    failed_ = true;
    stop_.request_stop();
  }
  forWorkers_.notify_all();
  forCaller_.notify_all();
}

void ArchiveWorkers::Work() {
  try {
    const std::unique_ptr<MemberPacker> packer = makePacker_();
    while (Slot* slot = Take()) {
      slot->job->Run(*packer, stop_.get_token());
      Complete(*slot);
    }
  } catch (...) {
    Fail(std::current_exception());
  }
}

// A job that holds more than the limit by itself runs alone: else it would never run.
bool ArchiveWorkers::MayTake() const {
  return !waiting_.empty() &&
         (heldBytes_ == 0 || heldBytes_ + waiting_.front()->HeldBytes() <= limits_.heldBytes);
}

ArchiveWorkers::Slot* ArchiveWorkers::Take() {
  Lock lock(mutex_);
  forWorkers_.wait(lock, [this] { return stop_.stop_requested() || MayTake(); });
  if (stop_.stop_requested()) return nullptr;
  const std::size_t heldBytes = waiting_.front()->HeldBytes();
  waitingBytes_ -= waiting_.front()->WaitingBytes();
  begun_.push_back({std::move(waiting_.front()), heldBytes});
  waiting_.pop_front();
  heldBytes_ += heldBytes;
  forCaller_.notify_one();
  return &begun_.back();
}

// The outcome mostly takes less memory than was reserved for the work: the rest is free at once.
void ArchiveWorkers::Complete(Slot& slot) {
  Lock lock(mutex_);
  heldBytes_ -= slot.heldBytes;
  slot.heldBytes = slot.job->HeldBytes();
  heldBytes_ += slot.heldBytes;
  slot.complete = true;
  forWorkers_.notify_all();
  if (!delivering_) DeliverComplete(lock);
}

// One worker delivers at a time, without the lock, so that the others go on packing while it
// writes.
void ArchiveWorkers::DeliverComplete(Lock& lock) {
  delivering_ = true;
  while (!begun_.empty() && begun_.front().complete && !stop_.stop_requested()) {
    Slot slot = std::move(begun_.front());
    begun_.pop_front();
    lock.unlock();
    slot.job->Deliver(stop_.get_token());
    slot.job.reset();
    lock.lock();
    heldBytes_ -= slot.heldBytes;
    forWorkers_.notify_all();
  }
  delivering_ = false;
  if (waiting_.empty() && begun_.empty()) forCaller_.notify_one();
}

}  // namespace tools
