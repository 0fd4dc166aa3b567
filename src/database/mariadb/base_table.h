#pragma once

#include <string_view>

#include "database/base_table.h"
#include "database/column.h"

namespace dralo::database::mariadb {

class Session;

/// The table that rows of the query `text`, which has `columns`, can be written to. What the server tells of
/// the origin of a column is believed only where the query names the table and the catalogue has the column:
/// of a subquery the server tells the names that the query has given.
/// Throws platform::Error saying why there is none.
BaseTable FindBaseTable(Session& session, const Columns& columns, std::string_view text);

}  // namespace dralo::database::mariadb
