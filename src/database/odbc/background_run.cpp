#include "database/odbc/background_run.h"

#include <csignal>

#include <chrono>
#include <utility>

namespace dralo::database::odbc {

namespace {

constexpr std::chrono::milliseconds kPatience{50};

/// While this object lives, threads are born with all signals blocked: a handler of the host program must not
/// run in a thread that it knows nothing of.
class BlockedSignals {
 public:
  BlockedSignals() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  BlockedSignals(const BlockedSignals&) = delete;
  BlockedSignals& operator=(const BlockedSignals&) = delete;

 private:
  sigset_t before_{};
};

}  // namespace

void BackgroundRun::Start(std::function<SQLRETURN()> run) {
  const BlockedSignals blocked;
  result_ = std::async(std::launch::async, std::move(run));
}

void BackgroundRun::Cancel(SQLHSTMT statement, bool may_interrupt) noexcept {
  if (may_interrupt && result_.wait_for(kPatience) != std::future_status::ready) SQLCancel(statement);
  result_.wait();
  result_ = {};
}

}  // namespace dralo::database::odbc
