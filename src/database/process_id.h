#pragma once

#include <sys/types.h>

namespace dralo::database {

/// The number of this process, known without a system call. A child made by fork() gets its own before
/// anything else runs in it.
pid_t ProcessId() noexcept;

}  // namespace dralo::database
