#include "database/interruption.h"

#include <atomic>

namespace dralo::database {
namespace {

std::atomic<WantsToStop> host_wants_to_stop = nullptr;

}  // namespace

void StopStatementsWhen(WantsToStop wants_to_stop) noexcept { host_wants_to_stop = wants_to_stop; }

bool HostWantsToStop() noexcept {
  const WantsToStop wants_to_stop = host_wants_to_stop;
  return wants_to_stop != nullptr && wants_to_stop();
}

}  // namespace dralo::database
