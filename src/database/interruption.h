#pragma once

namespace dralo::database {

/// Whether the host wants the statement that runs on this thread to end. Asked often, while other work goes
/// on.
using WantsToStop = bool (*)() noexcept;

/// Sets this for all connections of the process: a statement fails as soon as the answer is yes. nullptr, as
/// at the start, lets statements run.
void StopStatementsWhen(WantsToStop wants_to_stop) noexcept;

bool HostWantsToStop() noexcept;

/// The message for a statement that was running when the time of its page was over; see
/// platform::StatementClock.
inline constexpr char kTimeOfPageIsOver[] =
    "The statement was ended: all those of the page have taken longer than the Query Timeout";

}  // namespace dralo::database
