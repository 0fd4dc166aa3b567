#include "database/odbc/provider.h"

#include <algorithm>

#include "database/odbc/options.h"
#include "database/odbc/session.h"
#include "text/ascii.h"

namespace dralo::database::odbc {

std::string Provider::Library() const { return "unixODBC, and a driver for each database"; }

bool Provider::IsCalled(std::string_view name) const { return text::EqualAscii(name, kDriverProvider); }

/// Every connection to SQLite's ":memory:" is a database of its own.
std::string Provider::PoolKey(const ConnectionString& connection_string) const {
  const auto is_in_memory = [](const ConnectionString::Pair& pair) { return pair.value == ":memory:"; };
  if (std::ranges::any_of(connection_string.Pairs(), is_in_memory)) return {};
  return database::Provider::PoolKey(connection_string);
}

std::unique_ptr<database::Session> Provider::Connect(const ConnectionString& connection_string) const {
  return std::make_unique<Session>(ReadOptions(connection_string));
}

}  // namespace dralo::database::odbc
