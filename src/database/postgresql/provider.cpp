#include "database/postgresql/provider.h"

#include "database/postgresql/libpq.h"
#include "database/postgresql/options.h"
#include "database/postgresql/session.h"
#include "dralo/error.h"
#include "text/ascii.h"

namespace dralo::database::postgresql {

std::string Provider::Library() const {
  try {
    const int version = Libpq::Get().PQlibVersion();
    return "libpq " + std::to_string(version / 10'000) + "." + std::to_string(version % 10'000);
  } catch (const platform::Error& error) {
    return error.what();
  }
}

bool Provider::IsCalled(std::string_view name) const { return text::EqualAscii(name, "PostgreSQL"); }

/// Made of the pairs as they were given: reading them as options would cost every page more.
std::string Provider::PoolKey(const ConnectionString& connection_string) const {
  return "PostgreSQL;" + connection_string.Identity();
}

std::unique_ptr<database::Session> Provider::Connect(const ConnectionString& connection_string) const {
  return std::make_unique<Session>(ReadOptions(connection_string));
}

}  // namespace dralo::database::postgresql
