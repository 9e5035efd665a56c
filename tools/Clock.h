// The date and time, behind an interface so that tests can set them.
#pragma once

#include <chrono>
#include <string>

namespace tools {

/// The current local date and time, and the time that passes.
class Clock {
 public:
  virtual ~Clock() = default;
  Clock() = default;
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;

  /// The four-digit year.
  [[nodiscard]] virtual int Year() const = 0;
  /// Date and time in the system's default form.
  [[nodiscard]] virtual std::string DateTimeText() const = 0;
  /// Time that only runs forward, to measure how long something took.
  [[nodiscard]] virtual std::chrono::steady_clock::time_point SteadyNow() const = 0;
};

/// The machine's clock, in local time and the user's locale.
class SystemClock : public Clock {
 public:
  [[nodiscard]] int Year() const override;
  [[nodiscard]] std::string DateTimeText() const override;
  [[nodiscard]] std::chrono::steady_clock::time_point SteadyNow() const override {
    return std::chrono::steady_clock::now();
  }
};

/// A point in time of UTC as files have it, in the years 1678 to 2261.
using FileTime = std::chrono::sys_time<std::chrono::nanoseconds>;

/// Local date and time in the system's default form.
[[nodiscard]] std::string LocalDateTimeText(FileTime time);

/// A clock whose date is set from outside, for builds that must give the same bytes at any time: it
/// stands still, in UTC and a form of no locale; time that passes is the machine's.
class EpochClock : public SystemClock {
 public:
  /// The last second of the year 9999.
  static constexpr std::chrono::sys_seconds kLast =
      std::chrono::sys_days{std::chrono::year{10000} / 1 / 1} - std::chrono::seconds{1};

  /// `time` lies between 1970-01-01 and kLast.
  explicit EpochClock(std::chrono::sys_seconds time) : time_(time) {}

  [[nodiscard]] int Year() const override;
  /// For example "2031-03-17 08:05:09".
  [[nodiscard]] std::string DateTimeText() const override;

 private:
  std::chrono::sys_seconds time_;
};

}  // namespace tools
