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

/// A session in use; goes back to the pool when it is dropped.
using PooledSession = std::unique_ptr<Session, ReturnToPool>;

/// The sessions of this process that nobody uses at present. Safe for use by several threads.
///
/// A session that comes back is rolled back, its statements are reset, and it is kept for the next Open()
/// with the same key. What cannot be taken back by that (see the provider's Reset()) makes it be closed
/// instead. A child process that inherits kept sessions by fork() forgets them without closing them.
///
/// Users are never kept waiting: when no kept session fits, a new one is opened. What the limits say is how
/// many stay open afterwards, and how long.
class SessionPool {
 public:
  struct Counts {
    std::size_t in_use = 0;
    std::size_t idle = 0;
  };

  struct Limits {
    std::size_t idle_sessions =
        8;  ///< Of all keys together; the one that was used longest ago has to go first.
    std::chrono::milliseconds idle_time = std::chrono::seconds{60};  ///< 0 sets no limit.
  };

  static SessionPool& Instance();

  ~SessionPool();
  SessionPool(const SessionPool&) = delete;
  SessionPool& operator=(const SessionPool&) = delete;

  /// Closes at once what is beyond the new limits.
  void SetLimits(const Limits& limits);

  /// A kept session, or nullptr when there is none that is still good. An empty `key` never has one.
  PooledSession Take(const std::string& key);

  /// Counts a new session, which will be kept under `key` after use, or closed when that is empty.
  PooledSession Adopt(std::unique_ptr<Session> session, const std::string& key);

  /// Closes all sessions that nobody uses.
  void CloseIdle();

  /// Closes the sessions that nobody has used for longer than the limit. Take() and the return of a session
  /// do that too; time alone does not.
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
