#include "database/sqlite/provider.h"

#include <sqlite3.h>

#include "database/sqlite/options.h"
#include "database/sqlite/session.h"

namespace dralo::database::sqlite {

std::string Provider::Library() const { return std::string("SQLite ") + sqlite3_libversion(); }

/// Every connection to ":memory:" is a database of its own.
std::string Provider::PoolKey(const ConnectionString& connection_string) const {
  const Options options = ReadOptions(connection_string);
  if (options.path == kInMemory) return {};
  std::string key = "SQLite";
  for (const int number :
       {options.flags, options.busy_timeout_ms, options.query_timeout_s, options.memory_map_mb}) {
    key.append(" ").append(std::to_string(number));
  }
  return key.append(" ").append(options.path);
}

std::unique_ptr<database::Session> Provider::Connect(const ConnectionString& connection_string) const {
  return std::make_unique<Session>(ReadOptions(connection_string));
}

}  // namespace dralo::database::sqlite
