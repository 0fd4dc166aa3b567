#pragma once

#include <string>

#include "database/column.h"
#include "database/odbc/dialect.h"

namespace dralo::database::odbc {

/// The condition that a column has exactly the value of a parameter "?", told apart also from values that
/// only sort or count as equal, and also for types that the database cannot compare as they are.
std::string SameValue(Dialect dialect, const Column& column, const std::string& quoted_column);

/// The condition that a column has a value that is read as Null.
std::string NoValue(Dialect dialect, const Column& column, const std::string& quoted_column);

}  // namespace dralo::database::odbc
