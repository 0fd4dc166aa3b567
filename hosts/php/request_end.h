#pragma once

namespace dralo::php {

/// Listens to the end of requests. A server that answers many requests with one script ends each of them
/// without the call that modules get at the end of a script. Called once, when the module starts.
void ListenToRequestEnd();

/// Called when the module stops.
void StopListeningToRequestEnd();

/// The request is over: all objects let go of its page, and nothing of it is left for the next one.
void EndRequest() noexcept;

}  // namespace dralo::php
