#include "support/own_server.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace dralo::tests {

const char* NameOf(Server server) { return server == Server::kPostgreSql ? "postgresql" : "mariadb"; }

/// The supervisor waits for the end of its input.
OwnServer::OwnServer(Server server, const std::vector<std::string>& options) : owner_(getpid()) {
  std::array<int, 2> input{};
  std::array<int, 2> output{};
  if (pipe2(input.data(), O_CLOEXEC) != 0 || pipe2(output.data(), O_CLOEXEC) != 0) {
    throw std::runtime_error("no pipe");
  }
  std::vector<std::string> words = {DRALO_DATABASE_SERVERS, "serve", NameOf(server)};
  words.insert(words.end(), options.begin(), options.end());
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  supervisor_ = fork();
  if (supervisor_ == 0) {
    setsid();
    dup2(input[0], STDIN_FILENO);
    dup2(output[1], STDOUT_FILENO);
    execv(DRALO_DATABASE_SERVERS, arguments.data());
    _exit(127);
  }
  close(input[0]);
  close(output[1]);
  input_ = input[1];
  for (char digit = 0; read(output[0], &digit, 1) == 1 && digit != '\n';) port_ += digit;
  close(output[0]);
  if (port_.empty()) throw std::runtime_error(std::string(NameOf(server)) + " did not start");
}

OwnServer::~OwnServer() {
  if (getpid() != owner_) return;
  close(input_);
  waitpid(supervisor_, nullptr, 0);
}

}  // namespace dralo::tests
