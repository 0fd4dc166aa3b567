#include "database/sqlite/time_limit.h"

#include <string>
#include <utility>

#include "database/interruption.h"
#include "dralo/error.h"
#include "platform/statement_clock.h"

namespace dralo::database::sqlite {

void TimeLimit::Watch(sqlite3* connection, int seconds) {
  // Some tenths of a millisecond, so that the cost of asking cannot be measured.
  constexpr int kInstructionsBetween = 10'000;
  time_ = std::chrono::seconds{seconds};
  sqlite3_progress_handler(connection, kInstructionsBetween, Ask, this);
}

int TimeLimit::Step(sqlite3_stmt* statement, std::string_view text) {
  end_.reset();
  const int code = sqlite3_step(statement);
  end_.reset();
  const Reached reached = std::exchange(reached_, Reached::kNone);
  if (reached == Reached::kNone) return code;
  throw platform::Error(Reason(reached), SQLITE_INTERRUPT, {}, std::string(text));
}

std::string TimeLimit::Reason(Reached reached) const {
  if (reached == Reached::kOfPage) return kTimeOfPageIsOver;
  return "The statement was ended: its next record took longer than the Query Timeout of " +
         std::to_string(time_.count()) + " s; the connection string can set another";
}

int TimeLimit::Ask(void* limit) noexcept {
  return HostWantsToStop() || static_cast<TimeLimit*>(limit)->IsReached() ? 1 : 0;
}

bool TimeLimit::IsReached() noexcept {
  if (platform::StatementClock::IsOver()) {
    reached_ = Reached::kOfPage;
    return true;
  }
  if (time_.count() == 0) return false;
  const Clock::time_point now = Clock::now();
  if (!end_) end_ = now + time_;
  if (now > *end_) reached_ = Reached::kOwn;
  return reached_ != Reached::kNone;
}

}  // namespace dralo::database::sqlite
