#pragma once

#include <sqlite3.h>

#include "database/sqlite/statement.h"

namespace dralo::database::sqlite {

/// Describes the columns of a prepared statement.
Description Describe(sqlite3_stmt* statement);

/// How often SQLite has prepared the statement again because tables had changed.
int PreparedAgain(sqlite3_stmt* statement);

}  // namespace dralo::database::sqlite
