#include "database/odbc/background_run.h"

#include <chrono>
#include <utility>

#include "database/odbc/blocked_signals.h"

namespace dralo::database::odbc {

namespace {

constexpr std::chrono::milliseconds kPatience{50};

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
