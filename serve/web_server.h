#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "answer.h"

namespace serve {

/// How many clients are served at a time.
inline constexpr std::size_t kMostClients = 64;

/// Speaks HTTP with up to kMostClients clients at a time. Each has a thread of its own, which leaves a client
/// that neither sends nor takes anything for five seconds.
class WebServer {
 public:
  /// `respond` is called by several threads. What it throws becomes status 500.
  explicit WebServer(std::function<Answer(const Request&)> respond);
  ~WebServer();

  /// Listens on the port, or on a free one for 0, and returns it. Throws std::runtime_error, which says what
  /// to do.
  int Bind(const std::string& host, int port);

  /// Serves until Stop().
  void Serve();

  /// Lets answers that have begun come to their end; waits for Serve() to begin. Any other thread may call
  /// it.
  void Stop();

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace serve
