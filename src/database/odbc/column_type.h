#pragma once

#include <sql.h>

#include <string_view>

#include "database/column.h"
#include "database/odbc/dialect.h"
#include "database/odbc/reader.h"

namespace dralo::database::odbc {

/// What a driver tells of a column's type.
struct DriverType {
  SQLSMALLINT type = 0;
  SQLULEN size = 0;
  bool is_unsigned = false;

  /// The database's own name of the type; looked at only where types are told apart by it.
  std::string_view name = {};
};

/// Sets the column's type, size and parts, and returns how its values are read.
Reader SetType(Column& column, const DriverType& type, Dialect dialect, bool speaks_utf8);

}  // namespace dralo::database::odbc
