#pragma once

#include <sql.h>

#include <string_view>

#include "database/column.h"
#include "database/odbc/dialect.h"
#include "database/odbc/reading.h"

namespace dralo::database::odbc {

/// What a driver says about a column's type.
struct DriverType {
  SQLSMALLINT type = 0;
  SQLULEN size = 0;
  bool is_unsigned = false;

  /// The database's own name of the type.
  std::string_view name = {};
};

bool IsInteger(SQLSMALLINT type);

/// Sets the column's type, size and parts, and returns how its values are read.
Reading SetType(Column& column, const DriverType& type, const Dialect& dialect);

}  // namespace dralo::database::odbc
