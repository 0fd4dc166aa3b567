#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "database/column.h"
#include "database/postgresql/libpq.h"
#include "database/postgresql/reader.h"
#include "database/postgresql/table_catalog.h"

namespace dralo::database::postgresql {

/// What is known about the columns of a statement.
struct Description {
  /// The column of a table that a column of the result shows; 0 for an expression.
  using Origin = TableCatalog::ColumnNumber;

  struct ServerType {
    Oid number = 0;
    int modifier = -1;
    bool operator==(const ServerType&) const = default;
  };

  std::shared_ptr<const Columns> columns = std::make_shared<const Columns>();
  std::vector<Reader> readers;
  std::vector<Origin> origins;
  std::vector<ServerType> types;

  /// Whether the server says the same about the columns in `answer`.
  bool IsOf(const PGresult* answer) const;
};

/// The first value of the first row; nothing when there is none.
std::optional<platform::Variant> FirstValue(const PGresult* answer);

/// Describes the statement `text` by what the server says about it. Asks the catalogue about tables that are
/// new to it, so it must be called between two trips. Throws platform::Error.
Description Describe(Link& link, TableCatalog& catalog, const PGresult* answer, std::string_view text);

/// Sets what the columns show, as far as `catalog` knows it.
void SetOrigins(Description& description, const TableCatalog& catalog, std::string_view text);

}  // namespace dralo::database::postgresql
