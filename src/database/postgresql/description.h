#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "database/column.h"
#include "database/postgresql/libpq.h"
#include "database/postgresql/reader.h"
#include "database/postgresql/table_catalog.h"

namespace dralo::database::postgresql {

/// What is known of the columns of a statement.
struct Description {
  /// The column of a table that a column of the result shows; 0 for an expression.
  using Origin = TableCatalog::ColumnNumber;

  std::shared_ptr<const Columns> columns = std::make_shared<const Columns>();
  std::vector<Reading> readings;
  std::vector<Origin> origins;
};

/// Of the statement `text`, by what the server says of it. Asks the catalogue for tables that are new to it,
/// so it comes between two trips. Throws platform::Error.
Description Describe(Link& link, TableCatalog& catalog, const PGresult* answer, std::string_view text);

}  // namespace dralo::database::postgresql
