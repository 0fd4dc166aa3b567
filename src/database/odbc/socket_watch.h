#pragma once

#include <vector>

namespace dralo::database::odbc {

/// Notices without a round trip that the server has closed a connection. A driver does not tell its socket,
/// so it is found as the one that appears while the driver connects.
class SocketWatch {
 public:
  /// Before the driver connects.
  SocketWatch();

  /// After it has connected.
  void Find();

  /// False when several sockets appeared, or none.
  bool IsKnown() const { return socket_ >= 0; }

  /// The descriptor; negative when it is not known.
  int Socket() const { return socket_; }

  /// Whether the other end has said something, of which only a farewell can be expected between statements.
  bool HasEnded() const;

 private:
  std::vector<int> before_;
  int socket_ = -1;
};

}  // namespace dralo::database::odbc
