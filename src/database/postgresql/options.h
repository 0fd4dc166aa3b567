#pragma once

#include <string>
#include <utility>
#include <vector>

#include "database/connection_string.h"

namespace dralo::database::postgresql {

/// What a connection string says about a PostgreSQL database.
struct Options {
  struct Host {
    std::string name;  ///< Empty for the client library's default; a folder with a socket begins with "/".
    std::string port;  ///< Empty for the default.
  };

  /// Keys of the client library, such as "dbname", with their values.
  std::vector<std::pair<std::string, std::string>> settings;

  std::vector<Host> hosts;        ///< Tried in this order; at least one.
  std::string target_attributes;  ///< "read-write" and the like; empty when any host will do.
  bool prepares = true;           ///< Whether statements may stay prepared on the server.
  int connect_timeout_s = kDefaultConnectTimeoutS;  ///< 0 waits for ever.
  int query_timeout_s = kDefaultQueryTimeoutS;      ///< 0 waits for ever.
};

/// Throws platform::Error, which says what to write, when the connection string is not understood.
Options ReadOptions(const ConnectionString& connection_string);

}  // namespace dralo::database::postgresql
