#include "database/sqlite/time_limit.h"

#include <string>

#include "database/interruption.h"
#include "dralo/error.h"

namespace dralo::database::sqlite {

void TimeLimit::Watch(sqlite3* connection, int seconds) {
  // Some tenths of a millisecond, so that asking costs nothing that could be measured.
  constexpr int kInstructionsBetween = 10'000;
  time_ = std::chrono::seconds{seconds};
  sqlite3_progress_handler(connection, kInstructionsBetween, Ask, this);
}

int TimeLimit::Step(sqlite3_stmt* statement, std::string_view text) {
  end_.reset();
  const int code = sqlite3_step(statement);
  end_.reset();
  if (!is_reached_) return code;
  is_reached_ = false;
  throw platform::Error("The statement was ended: its next record took longer than the Query Timeout of " +
                            std::to_string(time_.count()) + " s; the connection string can set another",
                        SQLITE_INTERRUPT, {}, std::string(text));
}

int TimeLimit::Ask(void* limit) noexcept {
  return HostWantsToStop() || static_cast<TimeLimit*>(limit)->IsReached() ? 1 : 0;
}

bool TimeLimit::IsReached() noexcept {
  if (time_.count() == 0) return false;
  const Clock::time_point now = Clock::now();
  if (!end_) end_ = now + time_;
  is_reached_ = now > *end_;
  return is_reached_;
}

}  // namespace dralo::database::sqlite
