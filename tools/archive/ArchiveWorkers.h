// Threads that pack side by side, and hand what they packed to the archive in order.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

namespace tools {

class MemberPacker;

/// A piece of work that any thread may do, and whose outcome is delivered in order.
class ArchiveJob {
 public:
  virtual ~ArchiveJob() = default;
  ArchiveJob() = default;
  ArchiveJob(const ArchiveJob&) = delete;
  ArchiveJob& operator=(const ArchiveJob&) = delete;

  /// Bytes of memory that the job holds while it waits for its turn.
  [[nodiscard]] virtual std::size_t WaitingBytes() const { return 0; }
  /// Bytes of memory that work and outcome take: before Run at most, after it exactly.
  [[nodiscard]] virtual std::size_t HeldBytes() const = 0;
  /// Does the work, at the same time as other jobs, with the thread's own packer. May return early
  /// when `stop` is requested: Deliver is not called then.
  virtual void Run(MemberPacker& packer, const std::stop_token& stop) = 0;
  /// Called after Run, for one job at a time, in the order in which the jobs were added.
  virtual void Deliver(const std::stop_token& stop) = 0;
};

/// The first error of a job, whether raised by Run or by Deliver, stops everything and is raised by
/// the next call. All public operations belong to the thread that made the object.
///
/// Deliveries are made by the workers too: whoever completes the job that is next in order delivers
/// it and those behind it that are complete, while the others go on.
class ArchiveWorkers {
 public:
  struct Limits {
    int threads = 1;
    /// Bytes that jobs may hold between their start and their delivery. A job that could hold more
    /// runs when nothing else is held.
    std::size_t heldBytes = 0;
    std::size_t waitingBytes = 0;  ///< what those not yet begun may hold, but for the last
  };
  /// Makes a thread's packer, on that thread.
  using PackerFactory = std::function<std::unique_ptr<MemberPacker>()>;
  /// Called on the caller's thread, several times a second, while it waits.
  using WaitCallback = std::function<void()>;

  /// Starts the threads; fewer when the system refuses some. Raises Error when it refuses all.
  ArchiveWorkers(const Limits& limits, PackerFactory makePacker);
  /// Stops the threads; jobs that are not delivered are dropped.
  ~ArchiveWorkers();
  ArchiveWorkers(const ArchiveWorkers&) = delete;
  ArchiveWorkers& operator=(const ArchiveWorkers&) = delete;

  /// Adds a job, waiting while too many are waiting. Raises the first error so far, and what
  /// `whileWaiting` raises.
  void Add(std::unique_ptr<ArchiveJob> job, const WaitCallback& whileWaiting);
  /// Waits until all jobs are delivered. Raises as Add does.
  void WaitForAll(const WaitCallback& whileWaiting);
  /// Raises the first error so far, if any.
  void RaiseFailure();

 private:
  struct Slot {
    std::unique_ptr<ArchiveJob> job;
    std::size_t heldBytes = 0;
    bool complete = false;
  };
  using Lock = std::unique_lock<std::mutex>;

  void Work();
  /// Ends the work of every thread; the caller's next call raises the error.
  void Fail(std::exception_ptr failure);
  [[nodiscard]] Slot* Take();
  [[nodiscard]] bool MayTake() const;
  void Complete(Slot& slot);
  void DeliverComplete(Lock& lock);
  template <typename Condition>
  void CallerWaits(const WaitCallback& whileWaiting, const Condition& condition);

  const Limits limits_;
  const PackerFactory makePacker_;
  std::stop_source stop_;
  std::atomic<bool> failed_ = false;

  std::mutex mutex_;  // guards what follows, but for the threads
  std::condition_variable forWorkers_;
  std::condition_variable forCaller_;
  std::deque<std::unique_ptr<ArchiveJob>> waiting_;
  std::deque<Slot> begun_;  // in order; slots keep their place in memory
  std::size_t waitingBytes_ = 0;
  std::size_t heldBytes_ = 0;
  bool delivering_ = false;
  std::exception_ptr failure_;

  std::vector<std::thread> threads_;
};

}  // namespace tools
