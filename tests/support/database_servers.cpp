#include "support/database_servers.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace dralo::tests {

namespace {

const char* NameOf(Server server) { return server == Server::kPostgreSql ? "postgresql" : "mariadb"; }

/// A server that ends when this object or this process does: its supervisor waits for the end of its input.
class OwnServer {
 public:
  explicit OwnServer(Server server) {
    std::array<int, 2> input{};
    std::array<int, 2> output{};
    if (pipe2(input.data(), O_CLOEXEC) != 0 || pipe2(output.data(), O_CLOEXEC) != 0) {
      throw std::runtime_error("no pipe");
    }
    supervisor_ = fork();
    if (supervisor_ == 0) {
      setsid();
      dup2(input[0], STDIN_FILENO);
      dup2(output[1], STDOUT_FILENO);
      execl(DRALO_DATABASE_SERVERS, DRALO_DATABASE_SERVERS, "serve", NameOf(server), nullptr);
      _exit(127);
    }
    close(input[0]);
    close(output[1]);
    input_ = input[1];
    for (char digit = 0; read(output[0], &digit, 1) == 1 && digit != '\n';) port_ += digit;
    close(output[0]);
    if (port_.empty()) throw std::runtime_error(std::string(NameOf(server)) + " did not start");
  }

  ~OwnServer() {
    if (getpid() != owner_) return;
    close(input_);
    waitpid(supervisor_, nullptr, 0);
  }
  OwnServer(const OwnServer&) = delete;
  OwnServer& operator=(const OwnServer&) = delete;

  const std::string& Port() const { return port_; }

 private:
  const pid_t owner_ = getpid();
  pid_t supervisor_ = -1;
  int input_ = -1;
  std::string port_;
};

std::string SharedPort(Server server) {
  const char* folder = std::getenv("DRALO_SERVERS");
  if (!folder) return {};
  std::string port;
  std::ifstream(std::string(folder) + "/" + NameOf(server)) >> port;
  return port;
}

template <Server kServer>
std::string PortOfKind() {
  static const std::string shared = SharedPort(kServer);
  if (!shared.empty()) return shared;
  static const OwnServer own(kServer);
  return own.Port();
}

}  // namespace

std::string PortOf(Server server) {
  setenv("ODBCSYSINI", DRALO_DRIVERS_FOLDER, 0);
  return server == Server::kPostgreSql ? PortOfKind<Server::kPostgreSql>() : PortOfKind<Server::kMariaDb>();
}

}  // namespace dralo::tests
