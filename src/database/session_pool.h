#pragma once

#include <sys/types.h>

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
class SessionPool {
 public:
  struct Counts {
    std::size_t in_use = 0;
    std::size_t idle = 0;
  };

  static constexpr std::size_t kMaxIdlePerKey = 4;
  static constexpr std::size_t kMaxIdle = 64;

  static SessionPool& Instance();

  ~SessionPool();
  SessionPool(const SessionPool&) = delete;
  SessionPool& operator=(const SessionPool&) = delete;

  /// A kept session, or nullptr when there is none that is still good. An empty `key` never has one.
  PooledSession Take(const std::string& key);

  /// Counts a new session, which will be kept under `key` after use, or closed when that is empty.
  PooledSession Adopt(std::unique_ptr<Session> session, const std::string& key);

  /// Closes all sessions that nobody uses.
  void CloseIdle();

  Counts Count();

 private:
  friend struct ReturnToPool;

  struct Idle {
    std::string key;
    std::unique_ptr<Session> session;
  };

  SessionPool();
  void Return(std::unique_ptr<Session> session, std::string key) noexcept;
  std::unique_ptr<Session> TakeIdle(const std::string& key);
  std::unique_ptr<Session> Keep(std::unique_ptr<Session> session, std::string key) noexcept;
  void ForgetInherited() noexcept;

  std::mutex mutex_;
  pid_t process_;
  std::size_t in_use_ = 0;
  std::vector<Idle> idle_;  ///< In the order of their return.
};

}  // namespace dralo::database
