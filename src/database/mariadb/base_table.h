#pragma once

#include <string_view>

#include "database/base_table.h"
#include "database/column.h"

namespace dralo::database::mariadb {

class Session;

/// The table that rows of the query `text`, which has `columns`, can be written to. What the server says
/// about the origin of a column is believed only when the query names the table and the catalogue has the
/// column: for a subquery the server gives the names that the query has made up. Throws platform::Error,
/// which says why, when there is no such table.
BaseTable FindBaseTable(Session& session, const Columns& columns, std::string_view text);

}  // namespace dralo::database::mariadb
