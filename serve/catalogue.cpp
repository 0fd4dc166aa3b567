#include "catalogue.h"

namespace serve {
namespace {

bool IsSqlite(Rows& rows) {
  try {
    rows.Query("SELECT sqlite_version()");
    return true;
  } catch (const dralo::Error& error) {
    // Other databases do not know the function. That the file is no database is a failure of its own.
    if (std::string_view(error.what()).find("not a database") != std::string_view::npos) throw;
    return false;
  }
}

}  // namespace

std::string Quoted(const Catalogue& catalogue, std::string_view name) {
  const char quote = catalogue.NameQuote();
  std::string quoted(1, quote);
  for (const char c : name) quoted.append(c == quote ? 2 : 1, c);
  return quoted + quote;
}

std::string Quoted(const Catalogue& catalogue, const TableName& table) {
  const std::string schema = table.schema.empty() ? "" : Quoted(catalogue, table.schema) + ".";
  return schema + Quoted(catalogue, table.name);
}

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
