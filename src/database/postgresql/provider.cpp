#include "database/postgresql/provider.h"

#include "database/postgresql/libpq.h"
#include "database/postgresql/options.h"
#include "database/postgresql/session.h"
#include "dralo/error.h"

namespace dralo::database::postgresql {

std::string Provider::Library() const {
  try {
    const int version = Libpq::Get().PQlibVersion();
    return "libpq " + std::to_string(version / 10'000) + "." + std::to_string(version % 10'000);
  } catch (const platform::Error& error) {
    return error.what();
  }
}

std::unique_ptr<database::Session> Provider::Connect(const ConnectionString& connection_string) const {
  return std::make_unique<Session>(ReadOptions(connection_string));
}

}  // namespace dralo::database::postgresql
