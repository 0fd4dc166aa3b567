#include "database/odbc/provider.h"

#include "database/odbc/options.h"
#include "database/odbc/session.h"

namespace dralo::database::odbc {

std::string Provider::PoolKey(const ConnectionString& connection_string) const {
  const Options options = ReadOptions(connection_string);
  if (options.file == ":memory:") return {};
  return "ODBC " + std::to_string(options.query_timeout_s) + " " + options.text;
}

std::unique_ptr<database::Session> Provider::Connect(const ConnectionString& connection_string) const {
  return std::make_unique<Session>(ReadOptions(connection_string));
}

}  // namespace dralo::database::odbc
