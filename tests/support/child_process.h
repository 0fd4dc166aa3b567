#pragma once

#include <sys/wait.h>
#include <unistd.h>

namespace dralo::tests {

/// Whether `action` holds in a child process, which then ends without any clearing up. It does not when it
/// throws.
template <class Action>
bool HoldsInChild(Action&& action) {
  const pid_t child = fork();
  if (child == 0) {
    bool holds = false;
    try {
      holds = action();
    } catch (...) {
      holds = false;
    }
    _exit(holds ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace dralo::tests
