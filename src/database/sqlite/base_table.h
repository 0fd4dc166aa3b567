#pragma once

#include <sqlite3.h>

#include <string_view>

#include "database/base_table.h"
#include "database/column.h"

namespace dralo::database::sqlite {

/// The table that rows of the query `text`, which has `columns`, can be written to. Throws platform::Error,
/// which says why, when there is no such table.
BaseTable FindBaseTable(sqlite3* connection, const Columns& columns, std::string_view text);

}  // namespace dralo::database::sqlite
