#include "hosts/php/guard.h"

#include <optional>
#include <utility>

#include "hosts/php/engine.h"
#include "hosts/php/errors.h"
#include "hosts/php/thread_state.h"

namespace dralo::php {
namespace {

/// How a call into C++ ended: by an abort with a reason, by a failure that is remembered, or well.
struct Outcome {
  bool is_done = false;
  std::optional<HostAbort::Reason> abort = std::nullopt;
};

// The frame that longjmp returns to: it holds nothing that needs a destructor.
[[gnu::noinline]] bool Completes(void (*body)(void*), void* context) {
  volatile bool completed = false;
  zend_fiber_switch_block();
  zend_try {
    body(context);
    completed = true;
  }
  zend_end_try();
  zend_fiber_switch_unblock();
  return completed;
}

/// Some patch releases no longer jump out when memory_limit is exceeded, but wait for somebody to notice.
/// They have _femalloc(), and the flag that they set does not exist in the others: so the engine that runs is
/// asked.
bool MemoryIsExhausted() {
  return &_femalloc != nullptr && PG(memory_limit) > 0 &&
         zend_memory_usage(true) > static_cast<std::size_t>(PG(memory_limit));
}

bool SomethingIsPending() { return EG(exception) != nullptr || MemoryIsExhausted(); }

class ChangeInProgress {
 public:
  explicit ChangeInProgress(Entry entry) : counts_(entry == Entry::kChanges) {
    if (!counts_) return;
    if (ThisThread().changes_in_progress > 0) {
      throw ScriptError{zend_ce_error,
                        "Dralo objects cannot be used like this while one of them is writing the page"};
    }
    ++ThisThread().changes_in_progress;
  }
  ~ChangeInProgress() {
    if (counts_) --ThisThread().changes_in_progress;
  }
  ChangeInProgress(const ChangeInProgress&) = delete;
  ChangeInProgress& operator=(const ChangeInProgress&) = delete;

 private:
  bool counts_;
};

[[gnu::noinline]] Outcome Run(Entry entry, void (*body)(void*), void* context) {
  try {
    const ChangeInProgress change(entry);
    body(context);
    return {.is_done = true};
  } catch (const HostAbort& abort) {
    return {.abort = abort.reason};
  } catch (...) {
    RememberFailure();
    return {};
  }
}

}  // namespace

void CallPhp(void (*body)(void* context), void* context) {
  if (!Completes(body, context)) throw HostAbort{HostAbort::Reason::kBail};
  if (SomethingIsPending()) throw HostAbort{HostAbort::Reason::kPending};
}

ScriptMayChange::ScriptMayChange() noexcept
    : changes_in_progress_(std::exchange(ThisThread().changes_in_progress, 0)) {}

ScriptMayChange::~ScriptMayChange() { ThisThread().changes_in_progress = changes_in_progress_; }

bool HasTimedOut() noexcept { return zend_atomic_bool_load_ex(&EG(timed_out)); }

void StopIfTimedOut() {
  if (HasTimedOut()) throw HostAbort{HostAbort::Reason::kTimedOut};
}

bool EnterCpp(Entry entry, void (*body)(void* context), void* context) {
  const Outcome outcome = Run(entry, body, context);
  if (outcome.is_done) return true;
  if (!outcome.abort) {
    ThrowRememberedFailure();
    return false;
  }
  switch (*outcome.abort) {
    case HostAbort::Reason::kBail:
      zend_bailout();
    case HostAbort::Reason::kTimedOut:
      zend_timeout();
    case HostAbort::Reason::kEnded:
      zend_throw_unwind_exit();
      break;
    case HostAbort::Reason::kPending:
    case HostAbort::Reason::kPageEnded:
      break;
  }
  return false;
}

}  // namespace dralo::php
