#pragma once

#include <string>
#include <vector>

#include "database/connection_string.h"

namespace dralo::database::mariadb {

/// How the connection is encrypted.
enum class SslMode {
  kDisabled,
  kPreferred,  ///< If the server can.
  kRequired,   ///< Whoever the server is.
  kVerified,   ///< The server has a certificate for the name of its host, signed by a known authority.
};

/// What a connection string says about a MariaDB or MySQL database.
struct Options {
  struct Host {
    std::string name;  ///< The file of a socket begins with "/".
    unsigned port = 0;
  };

  std::vector<Host> hosts;  ///< Tried in this order; at least one.
  std::string database;
  std::string user;
  std::string password;
  SslMode ssl_mode = SslMode::kDisabled;
  std::string ssl_authorities;  ///< A file of certificates; empty for those of the system.
  int connect_timeout_s = kDefaultConnectTimeoutS;  ///< 0 waits for ever.
  int query_timeout_s = kDefaultQueryTimeoutS;      ///< 0 waits for ever.
};

/// Throws platform::Error, which says what to write, when the connection string is not understood.
Options ReadOptions(const ConnectionString& connection_string);

}  // namespace dralo::database::mariadb
