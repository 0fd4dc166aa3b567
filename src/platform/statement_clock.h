#pragma once

#include <chrono>
#include <optional>

namespace dralo::platform {

/// The time within which the statements that run on this thread must have ended, all together and over every
/// connection: from the construction of the object to its end. The shorter one counts where there is another
/// one already.
class StatementClock {
 public:
  explicit StatementClock(std::chrono::seconds time) : outer_(latest_end) {
    const Clock::time_point end = Clock::now() + time;
    if (!outer_ || end < *outer_) latest_end = end;
  }
  ~StatementClock() { latest_end = outer_; }
  StatementClock(const StatementClock&) = delete;
  StatementClock& operator=(const StatementClock&) = delete;

  /// Whether the time is over. Asked often, between other work; never where there is no clock.
  static bool IsOver() noexcept { return latest_end && Clock::now() >= *latest_end; }

 private:
  using Clock = std::chrono::steady_clock;

  static inline thread_local std::optional<Clock::time_point> latest_end = std::nullopt;

  std::optional<Clock::time_point> outer_;
};

}  // namespace dralo::platform
