#pragma once

#include <sqlite3.h>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace dralo::database::sqlite {

/// Ends a statement that takes too long to reach its next row, that runs when the time of its page is over,
/// or that the host wants to end.
class TimeLimit {
 public:
  TimeLimit() = default;
  TimeLimit(const TimeLimit&) = delete;
  TimeLimit& operator=(const TimeLimit&) = delete;

  /// Watches all statements of the connection, which must not outlive this object. 0 sets no time limit.
  void Watch(sqlite3* connection, int seconds);

  /// sqlite3_step(), within the limit. Throws platform::Error, with `text` as its source, when the limit is
  /// reached.
  int Step(sqlite3_stmt* statement, std::string_view text);

 private:
  using Clock = std::chrono::steady_clock;

  static int Ask(void* limit) noexcept;
  bool IsReached() noexcept;

  enum class Reached { kNone, kOwn, kOfPage };

  std::string Reason(Reached reached) const;

  std::chrono::seconds time_{0};
  Reached reached_ = Reached::kNone;
  std::optional<Clock::time_point> end_;  ///< Of the running step, once it has taken some time.
};

}  // namespace dralo::database::sqlite
