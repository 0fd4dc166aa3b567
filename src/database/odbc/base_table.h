#pragma once

#include <string_view>

#include "database/base_table.h"
#include "database/column.h"
#include "database/odbc/link.h"

namespace dralo::database::odbc {

/// The table that rows of the query `text`, which has `columns` with their origins, can be written to. Throws
/// platform::Error, which says why, when there is no such table.
BaseTable FindBaseTable(const Link& link, const Columns& columns, std::string_view text);

}  // namespace dralo::database::odbc
