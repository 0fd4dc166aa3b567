#include "database/provider.h"

#include "database/odbc/provider.h"
#include "database/sqlite/provider.h"
#include "dralo/error.h"
#include "text/ascii.h"

namespace dralo::database {

const Provider& FindProvider(const ConnectionString& connection_string) {
  static const sqlite::Provider sqlite_provider;
  static const odbc::Provider odbc_provider;

  const auto name = connection_string.Find("Provider");
  if (connection_string.Find("Driver") || connection_string.Find("DSN") ||
      (name && text::EqualAscii(*name, "MSDASQL"))) {
    return odbc_provider;
  }
  if (!name) {
    throw platform::Error(
        "The connection string names no provider; write Provider=SQLite;Data Source=FILE, or Driver=NAME for "
        "another database");
  }
  if (text::EqualAscii(*name, "SQLite")) return sqlite_provider;
  throw platform::Error(
      "The connection string names an unknown provider; write Provider=SQLite;Data Source=FILE");
}

}  // namespace dralo::database
