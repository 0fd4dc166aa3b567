#include "support/database_servers.h"

#include <cstdlib>
#include <fstream>

#include "support/own_server.h"

namespace dralo::tests {

namespace {

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
