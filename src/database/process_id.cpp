#include "database/process_id.h"

#include <pthread.h>
#include <unistd.h>

namespace dralo::database {
namespace {

pid_t known_process = 0;

void LearnProcess() { known_process = getpid(); }

}  // namespace

pid_t ProcessId() noexcept {
  [[maybe_unused]] static const int registered = [] {
    LearnProcess();
    return pthread_atfork(nullptr, nullptr, &LearnProcess);
  }();
  return known_process;
}

}  // namespace dralo::database
