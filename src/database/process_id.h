#pragma once

#include <sys/types.h>

namespace dralo::database {

/// The number of this process, known without a system call: a child made by fork() learns its own before it
/// goes on.
pid_t ProcessId() noexcept;

}  // namespace dralo::database
