#pragma once

#include <sqlite3.h>

#include <optional>
#include <string>
#include <string_view>

namespace dralo::database::sqlite {

/// What SQLite reads for a query when every row of its result is one row of one table: the name or alias of
/// the table and how it is read. Nothing for joins, unions, groups and the like.
std::optional<std::string> FindOneTable(sqlite3* connection, std::string_view query);

/// Whether SQLite collects all rows of the result to sort them, rather than reading them in order.
bool SortsAllRows(sqlite3* connection, std::string_view query);

}  // namespace dralo::database::sqlite
