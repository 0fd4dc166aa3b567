#include "database/session_pool.h"

#include <algorithm>
#include <utility>

#include "database/process_id.h"

namespace dralo::database {

void ReturnToPool::operator()(Session* session) noexcept {
  if (session->BelongsToThisProcess()) {
    SessionPool::Instance().Return(std::unique_ptr<Session>(session), std::move(key));
  }
}

SessionPool& SessionPool::Instance() {
  static SessionPool pool;
  return pool;
}

SessionPool::SessionPool() : process_(ProcessId()) { idle_.reserve(limits_.idle_sessions + 1); }

SessionPool::~SessionPool() { ForgetInherited(); }

/// Makes room for all sessions, so that returning one never fails.
void SessionPool::SetLimits(const Limits& limits) {
  {
    const std::lock_guard lock(mutex_);
    idle_.reserve(limits.idle_sessions + 1);
    limits_ = limits;
  }
  CloseStale();
}

PooledSession SessionPool::Take(const std::string& key) {
  CloseStale();
  if (key.empty()) return nullptr;
  while (auto session = TakeIdle(key)) {
    if (session->IsAlive()) return Adopt(std::move(session), key);
  }
  return nullptr;
}

PooledSession SessionPool::Adopt(std::unique_ptr<Session> session, const std::string& key) {
  ReturnToPool back{key};
  const std::lock_guard lock(mutex_);
  ForgetInherited();
  ++in_use_;
  return PooledSession(session.release(), std::move(back));
}

void SessionPool::CloseIdle() {
  std::vector<Idle> dropped;
  const std::lock_guard lock(mutex_);
  ForgetInherited();
  dropped.reserve(idle_.capacity());
  dropped.swap(idle_);
}

SessionPool::Counts SessionPool::Count() {
  const std::lock_guard lock(mutex_);
  ForgetInherited();
  return {in_use_, idle_.size()};
}

void SessionPool::CloseStale() noexcept {
  for (std::unique_ptr<Session> stale;; stale.reset()) {
    const std::lock_guard lock(mutex_);
    ForgetInherited();
    stale = PopStale();
    if (!stale) return;
  }
}

void SessionPool::Return(std::unique_ptr<Session> session, std::string key) noexcept {
  const bool is_good = session->Reset() && !key.empty();
  std::unique_ptr<Session> dropped;
  {
    const std::lock_guard lock(mutex_);
    ForgetInherited();
    --in_use_;
    if (is_good) {
      idle_.push_back({std::move(key), std::move(session), Clock::now()});
      dropped = PopStale();
    }
  }
  CloseStale();
}

/// The session that was returned last is taken first, because its caches are the warmest.
std::unique_ptr<Session> SessionPool::TakeIdle(const std::string& key) {
  const std::lock_guard lock(mutex_);
  ForgetInherited();
  const auto found =
      std::find_if(idle_.rbegin(), idle_.rend(), [&](const Idle& idle) { return idle.key == key; });
  if (found == idle_.rend()) return nullptr;
  auto session = std::move(found->session);
  idle_.erase(std::next(found).base());
  return session;
}

/// The oldest session if it must no longer be kept.
std::unique_ptr<Session> SessionPool::PopStale() noexcept {
  if (idle_.empty() || !IsStale(idle_.front())) return nullptr;
  auto session = std::move(idle_.front().session);
  idle_.erase(idle_.begin());
  return session;
}

bool SessionPool::IsStale(const Idle& idle) const noexcept {
  if (idle_.size() > limits_.idle_sessions) return true;
  return limits_.idle_time.count() > 0 && Clock::now() - idle.since > limits_.idle_time;
}

void SessionPool::ForgetInherited() noexcept {
  if (process_ == ProcessId()) return;
  process_ = ProcessId();
  in_use_ = 0;
  for (Idle& idle : idle_) static_cast<void>(idle.session.release());
  idle_.clear();
}

}  // namespace dralo::database
