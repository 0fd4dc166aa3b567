#include "database/sqlite/row_number.h"

#include "database/sqlite/quote.h"

namespace dralo::database::sqlite {

namespace {

/// The name that SQLite gives as the origin of a query's only column; empty when the query is not accepted.
std::string OriginOf(sqlite3* connection, const std::string& query) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(connection, query.c_str(), static_cast<int>(query.size() + 1), &statement, nullptr);
  const char* origin = statement ? sqlite3_column_origin_name(statement, 0) : nullptr;
  std::string name(origin ? origin : "");
  sqlite3_finalize(statement);
  return name;
}

}  // namespace

/// An ordinary column may be called "rowid" and then hides the row's number; "_rowid_" still reaches that.
std::string RowNumberColumn(sqlite3* connection, const std::string& database, const std::string& table) {
  std::string name = OriginOf(connection, "SELECT _rowid_ FROM " + Quote(database) + "." + Quote(table));
  int is_key = 1;
  if (name == "rowid") {
    sqlite3_table_column_metadata(connection, database.c_str(), table.c_str(), "rowid", nullptr, nullptr,
                                  nullptr, &is_key, nullptr);
  }
  return is_key ? name : "";
}

}  // namespace dralo::database::sqlite
