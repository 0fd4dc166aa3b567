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

/// Room for all from the start, so that returning a session never fails.
SessionPool::SessionPool() : process_(ProcessId()) { idle_.reserve(kMaxIdle); }

SessionPool::~SessionPool() { ForgetInherited(); }

PooledSession SessionPool::Take(const std::string& key) {
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
  dropped.reserve(kMaxIdle);
  const std::lock_guard lock(mutex_);
  ForgetInherited();
  dropped.swap(idle_);
}

SessionPool::Counts SessionPool::Count() {
  const std::lock_guard lock(mutex_);
  ForgetInherited();
  return {in_use_, idle_.size()};
}

void SessionPool::Return(std::unique_ptr<Session> session, std::string key) noexcept {
  const bool is_good = session->Reset() && !key.empty();
  std::unique_ptr<Session> dropped;
  const std::lock_guard lock(mutex_);
  ForgetInherited();
  --in_use_;
  dropped = is_good ? Keep(std::move(session), std::move(key)) : std::move(session);
}

/// The session returned last comes first: its caches are the warmest.
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

/// Returns the session that has to go for it.
std::unique_ptr<Session> SessionPool::Keep(std::unique_ptr<Session> session, std::string key) noexcept {
  const auto has_key = [&](const Idle& idle) { return idle.key == key; };
  std::unique_ptr<Session> dropped;
  auto oldest = idle_.end();
  if (static_cast<std::size_t>(std::ranges::count_if(idle_, has_key)) >= kMaxIdlePerKey) {
    oldest = std::ranges::find_if(idle_, has_key);
  } else if (idle_.size() >= kMaxIdle) {
    oldest = idle_.begin();
  }
  if (oldest != idle_.end()) {
    dropped = std::move(oldest->session);
    idle_.erase(oldest);
  }
  idle_.push_back({std::move(key), std::move(session)});
  return dropped;
}

void SessionPool::ForgetInherited() noexcept {
  if (process_ == ProcessId()) return;
  process_ = ProcessId();
  in_use_ = 0;
  for (Idle& idle : idle_) static_cast<void>(idle.session.release());
  idle_.clear();
}

}  // namespace dralo::database
