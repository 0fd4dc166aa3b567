#pragma once

namespace dralo::database {

/// Whether the host wants the statement that runs on this thread to end. Asked often, between other work.
using WantsToStop = bool (*)() noexcept;

/// For all connections of the process, from now on: a statement fails as soon as it is to stop. nullptr, as
/// at the start, lets statements run.
void StopStatementsWhen(WantsToStop wants_to_stop) noexcept;

bool HostWantsToStop() noexcept;

/// What is told of a statement that ran when the time of its page was over; see platform::StatementClock.
inline constexpr char kTimeOfPageIsOver[] =
    "The statement was ended: all those of the page have taken longer than the Query Timeout";

}  // namespace dralo::database
