#include "catalogue.h"

namespace serve {
namespace {

bool IsSqlite(Rows& rows) {
  try {
    rows.Query("SELECT sqlite_version()");
    return true;
  } catch (const dralo::Error& error) {
    // Another database does not know the function; a file that is none does not come so far.
    if (std::string_view(error.what()).find("not a database") != std::string_view::npos) throw;
    return false;
  }
}

}  // namespace

const Catalogue& FindCatalogue(Rows& rows) {
  if (IsSqlite(rows)) return SqliteCatalogue();
  std::vector<TextRow> version;
  try {
    version = rows.Query("SELECT version()");
  } catch (const dralo::Error&) {
    throw dralo::Error(
        "The database is none whose tables can be listed: SQLite, PostgreSQL, MariaDB or MySQL");
  }
  return version.front().front().starts_with("PostgreSQL") ? PostgresqlCatalogue() : MariadbCatalogue();
}

}  // namespace serve
