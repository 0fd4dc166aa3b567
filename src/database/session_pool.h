#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "database/session.h"

namespace dralo::database {

/// Hands a session back to the pool instead of destroying it.
struct ReturnToPool {
  std::string key;
  void operator()(Session* session) noexcept;
};

/// A session in use; goes back to the pool at its end.
using PooledSession = std::unique_ptr<Session, ReturnToPool>;

/// The sessions of this process that are not in use. Several threads may use it.
///
/// A session that comes back is rolled back, its statements are reset, and it is kept for the next Open()
/// with the same key. A session with changes that Reset() of its provider cannot undo is closed instead. A
/// child process that inherits kept sessions by fork() forgets them without closing them.
///
/// Users never wait: when no kept session fits, a new one is opened. The limits say how many stay open
/// afterwards, and how long.
class SessionPool {
 public:
  struct Counts {
    std::size_t in_use = 0;
    std::size_t idle = 0;
  };

  struct Limits {
    std::size_t idle_sessions = 8;  ///< Of all keys together; the least recently used one goes first.
    std::chrono::milliseconds idle_time = std::chrono::seconds{60};  ///< 0 sets no limit.
  };

  static SessionPool& Instance();

  ~SessionPool();
  SessionPool(const SessionPool&) = delete;
  SessionPool& operator=(const SessionPool&) = delete;

  /// Closes at once the sessions beyond the new limits.
  void SetLimits(const Limits& limits);

  /// A kept session; nullptr when none is kept that still works. With an empty `key` there is never one.
  PooledSession Take(const std::string& key);

  /// Counts a new session, which will be kept under `key` after use, or closed when `key` is empty.
  PooledSession Adopt(std::unique_ptr<Session> session, const std::string& key);

  /// Closes all sessions that are not in use.
  void CloseIdle();

  /// Closes the sessions that have not been used for longer than the limit. Take() and the return of a
  /// session do that too; time alone does not.
  void CloseStale() noexcept;

  Counts Count();

 private:
  friend struct ReturnToPool;

  using Clock = std::chrono::steady_clock;

  struct Idle {
    std::string key;
    std::unique_ptr<Session> session;
    Clock::time_point since;
  };

  SessionPool();
  void Return(std::unique_ptr<Session> session, std::string key) noexcept;
  std::unique_ptr<Session> TakeIdle(const std::string& key);
  std::unique_ptr<Session> PopStale() noexcept;
  bool IsStale(const Idle& idle) const noexcept;
  void ForgetInherited() noexcept;

  std::mutex mutex_;
  pid_t process_;
  Limits limits_;
  std::size_t in_use_ = 0;
  std::vector<Idle> idle_;  ///< In the order of their return.
};

}  // namespace dralo::database
