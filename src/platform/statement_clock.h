#pragma once

#include <chrono>
#include <optional>

namespace dralo::platform {

/// Limits the time of the statements that run on this thread while the object lives: the time counts from its
/// construction, for all statements together and over all connections. Inside another clock the shorter time
/// counts.
class StatementClock {
 public:
  explicit StatementClock(std::chrono::seconds time) : outer_(latest_end) {
    const Clock::time_point end = Clock::now() + time;
    if (!outer_ || end < *outer_) latest_end = end;
  }
  ~StatementClock() { latest_end = outer_; }
  StatementClock(const StatementClock&) = delete;
  StatementClock& operator=(const StatementClock&) = delete;

  /// Whether the time is over. Asked often, while other work goes on; false without a clock.
  static bool IsOver() noexcept { return latest_end && Clock::now() >= *latest_end; }

 private:
  using Clock = std::chrono::steady_clock;

  static inline thread_local std::optional<Clock::time_point> latest_end = std::nullopt;

  std::optional<Clock::time_point> outer_;
};

}  // namespace dralo::platform
