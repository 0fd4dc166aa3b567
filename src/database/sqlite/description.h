#pragma once

#include <sqlite3.h>

#include "database/sqlite/statement.h"

namespace dralo::database::sqlite {

/// Finds out about the columns of a prepared statement.
Description Describe(sqlite3_stmt* statement);

/// How often SQLite prepared the statement anew because tables had been changed.
int PreparedAgain(sqlite3_stmt* statement);

}  // namespace dralo::database::sqlite
