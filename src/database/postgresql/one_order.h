#pragma once

#include "database/postgresql/description.h"
#include "database/postgresql/statement.h"
#include "database/postgresql/table_catalog.h"

namespace dralo::database::postgresql {

/// Whether the query's rows have the same order whatever plan the server makes: with the keys of its tables
/// in its order, or as they lie in the only table, all of which is read; an index that holds all columns may
/// be read in its place, which the same statements for all pages make the same for all. A plan that is kept
/// stays as it was when the tables grow, so the rows of other queries could have another order on a page that
/// is planned later.
bool HasOneOrder(const Statement& query, const Description& description, const TableCatalog& catalog);

}  // namespace dralo::database::postgresql
