#pragma once

#include <string>
#include <vector>

#include "database/connection_string.h"

namespace dralo::database::odbc {

/// What a connection string says about a database behind ODBC.
struct Options {
  std::string text;                  ///< For the driver manager, with what this provider needs
                                     ///< of the driver.
  std::vector<std::string> secrets;  ///< Must never be shown.
  int connect_timeout_s = kDefaultConnectTimeoutS;
  int query_timeout_s = kDefaultQueryTimeoutS;  ///< 0 waits for ever.
};

/// Throws platform::Error, which says what to write, when the connection string is not understood.
Options ReadOptions(const ConnectionString& connection_string);

}  // namespace dralo::database::odbc
