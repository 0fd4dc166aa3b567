#pragma once

#include <sqlite3.h>

#include <string>

namespace dralo::database::sqlite {

/// The name under which a result shows the number that SQLite gives each row of a table: that of the INTEGER
/// PRIMARY KEY, or "rowid". Empty for tables without such numbers.
std::string RowNumberColumn(sqlite3* connection, const std::string& database, const std::string& table);

}  // namespace dralo::database::sqlite
