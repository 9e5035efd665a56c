#include "tools/archive/OrderedWorkers.h"

#include <chrono>
#include <system_error>
#include <utility>

#include "tools/Error.h"
#include "tools/archive/MemberPacker.h"

namespace tools {

namespace {

constexpr std::chrono::milliseconds kWaitCallbackPeriod{50};

}  // namespace

OrderedWorkers::OrderedWorkers(const Limits& limits, PackerFactory makePacker)
    : limits_(limits), makePacker_(std::move(makePacker)) {
  try {
    for (int i = 0; i < limits_.threads; ++i) threads_.emplace_back([this] { Work(); });
  } catch (const std::system_error& error) {
    if (threads_.empty()) {
      throw Error("Es kann kein Thread gestartet werden (" + SystemErrorText(error.code()) + ")",
                  error.code());
    }
  }
}

OrderedWorkers::~OrderedWorkers() {
  {
    const Lock lock(mutex_);
    stop_.request_stop();
  }
  forWorkers_.notify_all();
  for (std::thread& thread : threads_) thread.join();
}

void OrderedWorkers::Add(std::unique_ptr<OrderedJob> job, const WaitCallback& whileWaiting) {
  CallerWaits(whileWaiting, [this] {
    return waiting_.size() < limits_.waitingJobs && waitingBytes_ <= limits_.waitingBytes;
  });
  {
    const Lock lock(mutex_);
    waitingBytes_ += job->WaitingBytes();
    waiting_.push_back(std::move(job));
  }
  forWorkers_.notify_one();
}

void OrderedWorkers::WaitForAll(const WaitCallback& whileWaiting) {
  CallerWaits(whileWaiting, [this] { return waiting_.empty() && begun_.empty() && !delivering_; });
}

// The callback runs without the lock, so that it may take its time.
template <typename Condition>
void OrderedWorkers::CallerWaits(const WaitCallback& whileWaiting, const Condition& condition) {
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

void OrderedWorkers::RaiseFailure() {
  if (!failed_) return;
  const Lock lock(mutex_);
  std::rethrow_exception(failure_);
}

void OrderedWorkers::Fail(std::exception_ptr failure) {
  {
    const Lock lock(mutex_);
    if (!failure_) failure_ = std::move(failure);
    failed_ = true;
    stop_.request_stop();
  }
  forWorkers_.notify_all();
  forCaller_.notify_all();
}

void OrderedWorkers::Work() {
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

bool OrderedWorkers::MayTake() const {
  return !waiting_.empty() &&
         (heldBytes_ == 0 || heldBytes_ + waiting_.front()->HeldBytes() <= limits_.heldBytes);
}

OrderedWorkers::Slot* OrderedWorkers::Take() {
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

void OrderedWorkers::Complete(Slot& slot) {
  Lock lock(mutex_);
  heldBytes_ -= slot.heldBytes;
  slot.heldBytes = slot.job->HeldBytes();
  heldBytes_ += slot.heldBytes;
  slot.complete = true;
  forWorkers_.notify_all();
  if (!delivering_) DeliverComplete(lock);
}

void OrderedWorkers::DeliverComplete(Lock& lock) {
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
