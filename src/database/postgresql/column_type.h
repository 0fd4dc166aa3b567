#pragma once

#include "database/column.h"
#include "database/postgresql/libpq.h"
#include "database/postgresql/reader.h"

namespace dralo::database::postgresql {

/// Sets the column's type, size and parts by the number of PostgreSQL's type and its modifier, -1 for none.
/// Returns how values are read.
Reader SetType(Column& column, Oid type, int modifier);

}  // namespace dralo::database::postgresql
