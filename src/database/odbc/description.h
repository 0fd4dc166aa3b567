#pragma once

#include <sql.h>

#include <memory>
#include <vector>

#include "database/column.h"
#include "database/odbc/link.h"
#include "database/odbc/reader.h"

namespace dralo::database::odbc {

/// What is known of the columns of a statement that was prepared or run.
struct Description {
  std::shared_ptr<const Columns> columns;
  std::vector<Reader> readers;
};

/// The number of columns; 0 when the statement yields no rows. Throws platform::Error when the driver finds
/// out only now that it does not accept the statement.
SQLSMALLINT CountColumns(const Link& link, SQLHSTMT statement, std::string_view text);

/// `wants_origins`: also which columns of tables are shown, which some drivers have to ask the database for.
/// `first`: the number of the first column that counts, from 1.
Description Describe(const Link& link, SQLHSTMT statement, std::string_view text, bool wants_origins,
                     SQLUSMALLINT first = 1);

/// A text that the driver tells of a column, "" when it does not.
std::string TextAttribute(const Link& link, SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT attribute);

}  // namespace dralo::database::odbc
