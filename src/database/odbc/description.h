#pragma once

#include <sql.h>

#include <memory>
#include <vector>

#include "database/column.h"
#include "database/odbc/link.h"
#include "database/odbc/reading.h"

namespace dralo::database::odbc {

/// What is known about the columns of a statement that was prepared or run.
struct Description {
  std::shared_ptr<const Columns> columns;
  std::vector<Reading> readings;
};

/// The number of columns; 0 when the statement yields no rows. Throws platform::Error when the driver finds
/// only now that it does not accept the statement.
SQLSMALLINT CountColumns(const Link& link, SQLHSTMT statement, std::string_view text);

/// With `wants_origins` the description has the columns of tables that are shown too; some drivers must ask
/// the database for them.
Description Describe(const Link& link, SQLHSTMT statement, std::string_view text, bool wants_origins);

}  // namespace dralo::database::odbc
