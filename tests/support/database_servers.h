#pragma once

#include <string>

namespace dralo::tests {

enum class Server { kPostgreSql, kMariaDb };

/// May do everything on both servers.
inline constexpr const char* kServerUser = "dralo";
inline constexpr const char* kServerPassword = "hush;4711";

/// The port of 127.0.0.1 that the server listens on: the one that the test run shares, else one that is
/// started for this process at the first call and ends with it. Throws std::runtime_error when the server
/// does not start; why stands on the standard error output. The drivers write no logs from then on.
std::string PortOf(Server server);

}  // namespace dralo::tests
