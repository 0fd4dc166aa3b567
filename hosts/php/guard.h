#pragma once

#include <memory>
#include <type_traits>

namespace dralo::php {

// The engine reports fatal errors, exhausted memory and departed visitors by longjmp, which passes C++ frames
// without running destructors: statements and locks would stay open. So every call from C++ into the engine
// goes through CallPhp(), which turns the jump into an exception, and every call from the engine into C++
// goes through EnterCpp(), which turns exceptions back into what the engine expects.

/// Unwinds the C++ frames between CallPhp() and EnterCpp(). Not derived from std::exception, so that handlers
/// which report failures on the page let it pass.
struct HostAbort {
  enum class Reason {
    kBail,       ///< The engine has jumped out; nothing of it may be called but zend_bailout().
    kPending,    ///< An exception of the script, or exhausted memory, waits for the engine to see it.
    kTimedOut,   ///< max_execution_time is over.
    kEnded,      ///< The page ended itself, as exit() does.
    kPageEnded,  ///< So did a page that the script sends itself: the script goes on.
  };
  Reason reason;
};

/// Runs `body`, which calls the engine. Throws HostAbort when the engine jumped out or an exception is
/// pending afterwards. `body` must not throw, and its locals must need no destructor.
void CallPhp(void (*body)(void* context), void* context);

template <class Body>
void CallPhp(Body&& body) {
  using Plain = std::remove_reference_t<Body>;
  CallPhp([](void* context) noexcept { (*static_cast<Plain*>(context))(); }, std::addressof(body));
}

/// Whether max_execution_time is over.
bool HasTimedOut() noexcept;

/// Throws HostAbort when max_execution_time is over. Asked at each piece of output: the engine kills the
/// process when nobody notices for too long.
void StopIfTimedOut();

/// What a call into C++ does. Output callbacks, destructors and error handlers of a script can run in the
/// middle of a render; they may read, but not change what the render uses.
enum class Entry { kReads, kChanges };

/// Lets the script use the extension's objects, a connection for instance, while C++ waits for one of its
/// functions. What the render uses refuses changes by itself.
class ScriptMayChange {
 public:
  ScriptMayChange() noexcept;
  ~ScriptMayChange();
  ScriptMayChange(const ScriptMayChange&) = delete;
  ScriptMayChange& operator=(const ScriptMayChange&) = delete;

 private:
  int changes_in_progress_;
};

/// Runs `body`, C++ code; returns whether it succeeded. Otherwise an exception of the script is pending, but
/// not when a page that the script sends itself has ended; an abort is passed on to the engine and does not
/// return. The caller's locals must need no destructor.
bool EnterCpp(Entry entry, void (*body)(void* context), void* context);

template <class Body>
bool EnterCpp(Entry entry, Body&& body) {
  using Plain = std::remove_reference_t<Body>;
  return EnterCpp(
      entry, [](void* context) { (*static_cast<Plain*>(context))(); }, std::addressof(body));
}

}  // namespace dralo::php
