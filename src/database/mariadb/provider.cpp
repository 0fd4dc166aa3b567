#include "database/mariadb/provider.h"

#include "database/mariadb/library.h"
#include "database/mariadb/options.h"
#include "database/mariadb/session.h"
#include "dralo/error.h"
#include "text/ascii.h"

namespace dralo::database::mariadb {

std::string Provider::Library() const {
  try {
    return std::string("libmariadb ") + mariadb::Library::Get().mysql_get_client_info();
  } catch (const platform::Error& error) {
    return error.what();
  }
}

bool Provider::IsCalled(std::string_view name) const {
  return text::EqualAscii(name, "MariaDB") || text::EqualAscii(name, "MySQL");
}

std::unique_ptr<database::Session> Provider::Connect(const ConnectionString& connection_string) const {
  return std::make_unique<Session>(ReadOptions(connection_string));
}

}  // namespace dralo::database::mariadb
