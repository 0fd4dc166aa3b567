#include "database/sqlite/provider.h"

#include "database/sqlite/options.h"
#include "database/sqlite/session.h"

namespace dralo::database::sqlite {

/// Every connection to ":memory:" is a database of its own.
std::string Provider::PoolKey(const ConnectionString& connection_string) const {
  const Options options = ReadOptions(connection_string);
  if (options.path == kInMemory) return {};
  return "SQLite " + std::to_string(options.flags) + " " + std::to_string(options.busy_timeout_ms) + " " +
         options.path;
}

std::unique_ptr<database::Session> Provider::Connect(const ConnectionString& connection_string) const {
  return std::make_unique<Session>(ReadOptions(connection_string));
}

}  // namespace dralo::database::sqlite
