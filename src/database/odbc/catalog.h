#pragma once

#include <string>
#include <vector>

#include "database/odbc/link.h"

namespace dralo::database::odbc {

using Names = std::vector<std::string>;

/// A table as the driver's catalog functions name it.
struct TableName {
  std::string schema;  ///< Or, where there are no schemas, the catalog; "" for
                       ///< the current one.
  std::string table;
};

/// The columns of the primary key in their order; none when there is no key.
Names PrimaryKey(const Link& link, const TableName& table);

/// The columns of every unique index, each in its order.
std::vector<Names> UniqueIndexes(const Link& link, const TableName& table);

/// The columns that are never Null.
Names RequiredColumns(const Link& link, const TableName& table);

}  // namespace dralo::database::odbc
