#include "database/odbc/deadline.h"

#include <sys/socket.h>

#include <algorithm>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>

#include "database/odbc/blocked_signals.h"
#include "database/process_id.h"

namespace dralo::database::odbc {

/// One thread that watches all deadlines of the process. It sleeps until the first one that it knew when it
/// fell asleep, so a deadline that is met in time usually costs no more than its place in a list.
class Watchdog {
 public:
  using Clock = std::chrono::steady_clock;
  using List = std::list<Deadline::Watched>;

  Watchdog() {
    const BlockedSignals blocked;
    thread_ = std::thread([this] { Watch(); });
  }
  ~Watchdog() {
    {
      const std::lock_guard lock(mutex_);
      is_ending_ = true;
    }
    changed_.notify_one();
    thread_.join();
  }
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  /// A child made by fork() has no thread, and gets a watchdog of its own.
  static Watchdog& OfThisProcess() {
    static Owner owner;
    const std::lock_guard lock(owner.mutex);
    if (owner.process != ProcessId()) {
      static_cast<void>(owner.watchdog.release());
      owner.watchdog = std::make_unique<Watchdog>();
      owner.process = ProcessId();
    }
    return *owner.watchdog;
  }

  List::iterator Add(const Deadline::Watched& watched) {
    const std::lock_guard lock(mutex_);
    if (watched.due < wakes_at_) changed_.notify_one();
    return list_.insert(list_.end(), watched);
  }

  /// The connection is left alone from then on.
  void Remove(List::iterator watched) {
    const std::lock_guard lock(mutex_);
    list_.erase(watched);
  }

 private:
  struct Owner {
    ~Owner() {
      if (process != ProcessId()) static_cast<void>(watchdog.release());
    }

    std::mutex mutex;
    std::unique_ptr<Watchdog> watchdog;
    pid_t process = 0;
  };

  void Watch() {
    std::unique_lock lock(mutex_);
    while (!is_ending_) {
      EndThoseDue();
      wakes_at_ = Clock::time_point::max();
      for (const auto& each : list_) wakes_at_ = std::min(wakes_at_, each.due);
      if (list_.empty()) {
        changed_.wait(lock);
      } else {
        changed_.wait_until(lock, wakes_at_);
      }
    }
  }

  void EndThoseDue() {
    const auto now = Clock::now();
    for (auto& each : list_) {
      if (each.due > now) continue;
      *each.has_passed = true;
      shutdown(each.socket, SHUT_RDWR);
      each.due = Clock::time_point::max();
    }
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  List list_;
  Clock::time_point wakes_at_ = Clock::time_point::max();
  bool is_ending_ = false;
  std::thread thread_;
};

Deadline::Deadline(int socket, std::chrono::seconds limit, std::atomic<bool>& has_passed) {
  try {
    watched_ = Watchdog::OfThisProcess().Add({Watchdog::Clock::now() + limit, socket, &has_passed});
    is_set_ = true;
  } catch (const std::system_error&) {
    is_set_ = false;
  }
}

Deadline::~Deadline() {
  if (is_set_) Watchdog::OfThisProcess().Remove(watched_);
}

}  // namespace dralo::database::odbc
