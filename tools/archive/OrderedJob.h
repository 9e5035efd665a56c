// A piece of work that any thread may do, and whose outcome is delivered in order.
#pragma once

#include <cstddef>
#include <stop_token>

namespace tools {

class MemberPacker;

class OrderedJob {
 public:
  virtual ~OrderedJob() = default;
  OrderedJob() = default;
  OrderedJob(const OrderedJob&) = delete;
  OrderedJob& operator=(const OrderedJob&) = delete;

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

}  // namespace tools
