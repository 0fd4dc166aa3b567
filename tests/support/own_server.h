#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "support/database_servers.h"

namespace dralo::tests {

/// How the programs call it.
const char* NameOf(Server server);

/// A server that ends when this object or this process does. Throws std::runtime_error when it does not
/// start; why stands on the standard error output.
class OwnServer {
 public:
  /// `options` go to the server's program, behind the usual ones.
  explicit OwnServer(Server server, const std::vector<std::string>& options = {});
  ~OwnServer();
  OwnServer(const OwnServer&) = delete;
  OwnServer& operator=(const OwnServer&) = delete;

  const std::string& Port() const { return port_; }

 private:
  const pid_t owner_;
  pid_t supervisor_ = -1;
  int input_ = -1;
  std::string port_;
};

}  // namespace dralo::tests
