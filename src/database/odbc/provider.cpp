#include "database/odbc/provider.h"

#include "database/odbc/options.h"
#include "database/odbc/session.h"
#include "text/ascii.h"

namespace dralo::database::odbc {

std::string Provider::Library() const { return "unixODBC, and a driver for each database"; }

bool Provider::IsCalled(std::string_view name) const { return text::EqualAscii(name, kDriverProvider); }

/// Made of the pairs as they were given: reading them as options would cost every page more than the rest of
/// its opening.
std::string Provider::PoolKey(const ConnectionString& connection_string) const {
  std::string key = "ODBC";
  for (const ConnectionString::Pair& pair : connection_string.Pairs()) {
    if (pair.value == ":memory:") return {};
    key.append(";").append(pair.key).append("=").append(std::to_string(pair.value.size()));
    key.append(" ").append(pair.value);
  }
  return key;
}

std::unique_ptr<database::Session> Provider::Connect(const ConnectionString& connection_string) const {
  return std::make_unique<Session>(ReadOptions(connection_string));
}

}  // namespace dralo::database::odbc
