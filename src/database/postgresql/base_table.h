#pragma once

#include <string_view>

#include "database/base_table.h"
#include "database/postgresql/description.h"
#include "database/postgresql/link.h"
#include "database/postgresql/table_catalog.h"

namespace dralo::database::postgresql {

/// The table that rows of the query `text` can be written to. Its names, and those in `description` and
/// `catalog`, become what the server calls them now. Throws platform::Error, which says why, when there is no
/// such table.
BaseTable FindBaseTable(Link& link, TableCatalog& catalog, Description& description, std::string_view text);

}  // namespace dralo::database::postgresql
